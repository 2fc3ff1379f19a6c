#include <Tests/Gallery/GalleryProgram.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include <stdlib.h>
#include <sys/wait.h>

namespace zr::test {

namespace {

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

} // namespace

ProgramRun runGallery(const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    std::string command = quoted(ZR_GALLERY_PROGRAM);
    for (const std::string& argument : arguments)
        command += " " + quoted(argument);
    command += " >" + quoted(folder.path("output")) + " 2>" + quoted(folder.path("errors"));
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.read("output"), folder.read("errors")};
}

std::vector<std::string> listedPages() {
    std::istringstream lines(runGallery({"--list"}).output);
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);)
        names.push_back(line.substr(0, line.find(' ')));
    return names;
}

TemporaryFolder::TemporaryFolder() :
    m_path((std::filesystem::temp_directory_path() / ("gallery-" + std::string(6, 'X'))).string()) {
    if (!mkdtemp(m_path.data()))
        throw std::runtime_error("no temporary folder can be made");
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void TemporaryFolder::write(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
}

std::string TemporaryFolder::read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace zr::test
