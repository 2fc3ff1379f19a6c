#include <ZRPlatform/Foundation/NSString.h>

namespace zr {

namespace {

/// "/" keeps its slash.
std::string_view withoutTrailingSlashes(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return path;
}

/// Where the last component of a path without trailing slashes begins.
std::size_t lastComponentStart(std::string_view path) { return path == "/" ? 0 : path.rfind('/') + 1; }

bool isParentFolder(std::string_view path) { return path == ".." || path.ends_with("/.."); }

/// The dot before the extension; the end of the path when there is none. A leading dot is part of the name.
std::size_t extensionDot(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const bool isExtension = dot != std::string_view::npos && dot > lastComponentStart(path) && !isParentFolder(path);
    return isExtension ? dot : path.size();
}

} // namespace

NSString NSString::stringByAppendingPathComponent(const NSString& component) const {
    if (isNil() || component.isNil())
        return nullptr;
    const std::string_view path = withoutTrailingSlashes(utf8());
    if (path.empty())
        return withoutTrailingSlashes(component.utf8());
    std::string_view name = withoutTrailingSlashes(component.utf8());
    while (name.starts_with('/'))
        name.remove_prefix(1);
    if (name.empty())
        return path;
    std::string result(path);
    if (!result.ends_with('/'))
        result += '/';
    return result.append(name);
}

NSString NSString::stringByAppendingPathExtension(const NSString& extension) const {
    if (isNil() || extension.isNil())
        return nullptr;
    const std::string_view path = withoutTrailingSlashes(utf8());
    if (path.empty() || path == "/")
        return path;
    return std::string(path) + '.' + extension.utf8();
}

NSString NSString::lastPathComponent() const {
    if (isNil())
        return nullptr;
    const std::string_view path = withoutTrailingSlashes(utf8());
    return path.substr(lastComponentStart(path));
}

NSString NSString::pathExtension() const {
    if (isNil())
        return nullptr;
    const std::string_view path = withoutTrailingSlashes(utf8());
    const std::size_t dot = extensionDot(path);
    return dot < path.size() ? path.substr(dot + 1) : std::string_view("");
}

NSString NSString::stringByDeletingLastPathComponent() const {
    if (isNil())
        return nullptr;
    const std::string_view path = withoutTrailingSlashes(utf8());
    if (path == "/")
        return path;
    return withoutTrailingSlashes(path.substr(0, lastComponentStart(path)));
}

NSString NSString::stringByDeletingPathExtension() const {
    if (isNil())
        return nullptr;
    const std::string_view path = withoutTrailingSlashes(utf8());
    return path.substr(0, extensionDot(path));
}

bool NSString::isAbsolutePath() const { return utf8().starts_with('/'); }

} // namespace zr
