#pragma once

#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>

#pragma GCC visibility push(default)
namespace zr {

/// A folder of resources.
class NSBundle : public NSObject {
public:
    /// The application's resources: the folder given to `setMainBundlePath`; else the folder "Resources" beside the
    /// program; else "share/NAME" beside its "bin" folder, NAME being the program's; else the program's own folder.
    static NSBundle* mainBundle();
    /// To be called before the main bundle is first asked for resources; nil brings the default back.
    static void setMainBundlePath(const NSString& path);

    /// False when there is no such folder.
    bool initWithPath(const NSString& path);
    /// The folder's path.
    const NSString& bundlePath() const { return m_path; }
    /// The full path of NAME.TYPE in this bundle (`type` nil or empty: of NAME); nil when there is no such file.
    NSString pathForResource_ofType(const NSString& name, const NSString& type) const;

private:
    NSString m_path;
};

} // namespace zr
#pragma GCC visibility pop
