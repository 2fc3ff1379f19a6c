# cmake -DROOT=FOLDER -DFILES=FILE|FILE… -DOUTPUT=FILE.cpp -P EmbedSources.cmake
# Writes a C++ file that holds the texts of the files, each under its path below ROOT.
string(REPLACE "|" ";" FILES "${FILES}")
set(entries "")
foreach(file IN LISTS FILES)
    file(RELATIVE_PATH path "${ROOT}" "${file}")
    file(READ "${file}" text)
    string(APPEND entries "    {\"${path}\", R\"source(${text})source\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "#include <Gallery/Source/SourceFile.h>

namespace zr::gallery {

namespace {

constexpr SourceFile kFiles[] = {
${entries}};

} // namespace

std::span<const SourceFile> pageSourceFiles() { return kFiles; }

} // namespace zr::gallery
")
