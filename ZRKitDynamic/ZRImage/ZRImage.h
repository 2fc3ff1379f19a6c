#pragma once

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// The kit's images: loaded by name, and gradients. No state; any thread may ask.
class ZRImage : public NSObject {
public:
    /// @name Files
    /// The first of these that is an image, with the scale its name tells, whatever the scale of the screen:
    ///
    /// 1. in the main bundle's folder, the named image NAME.EXTENSION; in any other one, the file NAME.EXTENSION
    /// 2. the file NAME@2x.EXTENSION
    /// 3. the file NAME@3x.EXTENSION
    /// 4. the file NAME.EXTENSION
    ///
    /// Nil when there is none, or when an argument is nil.
    /// @{
    /// The image of a file, found as said above. `fileName`: without extension. `expandedName`: the extension, without
    /// the dot. `directory`: the folder's path; it is the main bundle's only when it is spelled as
    /// `NSBundle::bundlePath` spells it.
    static Ref<UIImage> zrImageWithFileName_expandedName_inDirectory(const NSString& fileName,
                                                                     const NSString& expandedName,
                                                                     const NSString& directory);
    /// The same with the extension "png".
    static Ref<UIImage> zrImagePNGFileWithFileName_inDirectory(const NSString& fileName, const NSString& directory);
    /// The same as `UIImage::imageNamed`.
    static Ref<UIImage> zrImageNamed(const NSString& name);
    /// @}

    /// An opaque vertical gradient, the first colour at the top edge, the last at the bottom edge, the others evenly in
    /// between. `size` is in points, and in pixels too, whatever the screen's scale. Nil colours, and those that were
    /// never given a value, are left out; nil when none is left, or when the size is not one of an image.
    static Ref<UIImage> shadowImageFromColors_size(const std::vector<Ref<UIColor>>& colors, CGSize size);
};

} // namespace zr
#pragma GCC visibility pop
