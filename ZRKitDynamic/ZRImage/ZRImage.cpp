#include <ZRKitDynamic/ZRImage/ZRImage.h>

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/Foundation/NSBundle.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

namespace zr {

Ref<UIImage> ZRImage::zrImageWithFileName_expandedName_inDirectory(const NSString& fileName,
                                                                   const NSString& expandedName,
                                                                   const NSString& directory) {
    const NSString plainName = fileName.stringByAppendingPathExtension(expandedName);
    const auto fileWithSuffix = [&](const char* suffix) {
        const NSString name = fileName.stringByAppendingString(suffix).stringByAppendingPathExtension(expandedName);
        return UIImage::imageWithContentsOfFile(directory.stringByAppendingPathComponent(name));
    };
    const bool isMainBundle = directory.isEqualToString(NSBundle::mainBundle()->bundlePath());
    if (Ref<UIImage> image = isMainBundle ? UIImage::imageNamed(plainName) : fileWithSuffix(""))
        return image;
    if (Ref<UIImage> image = fileWithSuffix("@2x"))
        return image;
    if (Ref<UIImage> image = fileWithSuffix("@3x"))
        return image;
    return fileWithSuffix("");
}

Ref<UIImage> ZRImage::zrImagePNGFileWithFileName_inDirectory(const NSString& fileName, const NSString& directory) {
    return zrImageWithFileName_expandedName_inDirectory(fileName, "png", directory);
}

Ref<UIImage> ZRImage::zrImageNamed(const NSString& name) { return UIImage::imageNamed(name); }

Ref<UIImage> ZRImage::shadowImageFromColors_size(const std::vector<Ref<UIColor>>& colors, CGSize size) {
    std::vector<Ref<CGColor>> stops;
    for (const Ref<UIColor>& color : colors) {
        if (color && color->cgColor())
            stops.push_back(color->cgColor());
    }
    if (stops.empty())
        return nullptr;

    UIGraphicsBeginImageContextWithOptions(size, true, 1);
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    const Ref<CGColorSpace> space = CGColorGetColorSpace(stops.back());
    const Ref<CGGradient> gradient = CGGradientCreateWithColors(space, stops, nullptr);
    CGContextDrawLinearGradient(context, gradient, CGPointZero, CGPointMake(0, size.height),
                                kCGGradientDrawsBeforeStartLocation | kCGGradientDrawsAfterEndLocation);
    Ref<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
    CGContextRestoreGState(context);
    UIGraphicsEndImageContext();
    return image;
}

} // namespace zr
