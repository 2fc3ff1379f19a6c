#pragma once

#include <string>
#include <vector>

namespace zr::test {

/// What a run of the program left behind.
struct ProgramRun {
    int exitCode;
    std::string output;
    std::string errors;
};

/// Runs the gallery with these arguments and waits for its end.
ProgramRun runGallery(const std::vector<std::string>& arguments);

/// The names that `--list` prints, in order.
std::vector<std::string> listedPages();

/// A new, empty folder of this test's own; removed when the object goes.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& name = "") const { return m_path + "/" + name; }
    void write(const std::string& name, const std::string& text) const;
    std::string read(const std::string& name) const;

private:
    std::string m_path;
};

} // namespace zr::test
