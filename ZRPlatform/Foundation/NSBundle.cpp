#include <ZRPlatform/Foundation/NSBundle.h>

#include <filesystem>

namespace zr {

namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// A path with a zero byte would be cut there by the system, and name another file.
bool isFile(const NSString& path) {
    std::error_code error;
    return path.utf8().find('\0') == std::string::npos && fs::is_regular_file(path.utf8(), error);
}

NSString defaultMainBundlePath() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path folder = program.parent_path();
    if (isFolder(folder / "Resources"))
        return (folder / "Resources").string();
    const fs::path shared = folder.parent_path() / "share" / program.filename();
    if (folder.filename() == "bin" && isFolder(shared))
        return shared.string();
    return folder.string();
}

} // namespace

NSBundle* NSBundle::mainBundle() {
    // Never destroyed: images are looked up until the very end.
    static NSBundle* const bundle = [] {
        auto newBundle = make<NSBundle>();
        newBundle->m_path = defaultMainBundlePath();
        return newBundle.leak();
    }();
    return bundle;
}

void NSBundle::setMainBundlePath(const NSString& path) {
    mainBundle()->m_path = path.isNil() ? defaultMainBundlePath() : path;
}

bool NSBundle::initWithPath(const NSString& path) {
    if (!NSObject::init() || path.isNil() || !isFolder(path.utf8()))
        return false;
    m_path = path;
    return true;
}

NSString NSBundle::pathForResource_ofType(const NSString& name, const NSString& type) const {
    if (name.utf8().empty())
        return nullptr;
    NSString path = m_path.stringByAppendingPathComponent(name);
    if (!type.utf8().empty())
        path = path.stringByAppendingPathExtension(type);
    return isFile(path) ? path : nullptr;
}

} // namespace zr
