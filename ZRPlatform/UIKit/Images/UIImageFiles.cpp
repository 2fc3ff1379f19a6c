#include <ZRPlatform/Foundation/NSBundle.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Images/Internal/ImageDecoder.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <algorithm>
#include <array>
#include <mutex>
#include <unordered_map>

namespace zr {

namespace {

struct Variant {
    const char* suffix;
    CGFloat scale;
};
using Variants = std::array<Variant, 3>;

constexpr Variants kVariants{{{"", 1}, {"@2x", 2}, {"@3x", 3}}};

/// The variants that the screen does not have to enlarge first, nearest first; then the others, largest first.
Variants variantsForScreen(CGFloat screenScale) {
    Variants variants = kVariants;
    std::sort(variants.begin(), variants.end(), [&](const Variant& a, const Variant& b) {
        const bool aSuffices = a.scale >= screenScale, bSuffices = b.scale >= screenScale;
        if (aSuffices != bSuffices)
            return aSuffices;
        return aSuffices ? a.scale < b.scale : a.scale > b.scale;
    });
    return variants;
}

CGFloat scaleOfFile(const NSString& path) {
    const NSString name = path.stringByDeletingPathExtension();
    const auto variant = std::find_if(kVariants.begin() + 1, kVariants.end(),
                                      [&](const Variant& candidate) { return name.hasSuffix(candidate.suffix); });
    return variant != kVariants.end() ? variant->scale : 1;
}

NSString pathOfVariant(const NSString& name, const NSString& extension) {
    for (const Variant& variant : variantsForScreen(UIScreen::mainScreen()->scale())) {
        const NSString path =
            NSBundle::mainBundle()->pathForResource_ofType(name.stringByAppendingString(variant.suffix), extension);
        if (!path.isNil())
            return path;
    }
    return nullptr;
}

NSString pathOfImageNamed(const NSString& name) {
    const NSString extension = name.pathExtension();
    if (extension.length() > 0) {
        const NSString path = pathOfVariant(name.stringByDeletingPathExtension(), extension);
        if (!path.isNil())
            return path;
    }
    return pathOfVariant(name, "png");
}

/// The decoded named images by the path of their file.
class NamedImages : public NSObject {
public:
    /// Never destroyed: any thread may ask while the program ends.
    static NamedImages& shared() {
        static NamedImages* const images = [] {
            Ref<NamedImages> made = make<NamedImages>();
            NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(
                made, selector<&NamedImages::forgetAll>, UIApplicationDidReceiveMemoryWarningNotification, nullptr);
            return made.leak();
        }();
        return *images;
    }

    Ref<UIImage> imageAtPath(const NSString& path) {
        {
            const std::lock_guard lock(m_mutex);
            if (const auto known = m_images.find(path); known != m_images.end())
                return known->second;
        }
        // Decoded without the lock: threads that ask for different images do not wait for one another.
        Ref<UIImage> image = UIImage::imageWithContentsOfFile(path);
        if (!image)
            return nullptr;
        const std::lock_guard lock(m_mutex);
        return m_images.try_emplace(path, image).first->second;
    }

    void forgetAll() {
        std::unordered_map<NSString, Ref<UIImage>> forgotten;
        const std::lock_guard lock(m_mutex);
        forgotten.swap(m_images);
    }

private:
    std::mutex m_mutex;
    std::unordered_map<NSString, Ref<UIImage>> m_images;
};

} // namespace

Ref<UIImage> UIImage::imageNamed(const NSString& name) {
    if (name.length() == 0)
        return nullptr;
    const NSString path = pathOfImageNamed(name);
    return path.isNil() ? nullptr : NamedImages::shared().imageAtPath(path);
}

Ref<UIImage> UIImage::imageWithContentsOfFile(const NSString& path) {
    const auto decoded = decodeImageFile(path.utf8());
    if (!decoded)
        return nullptr;
    return imageWithCGImage_scale_orientation(decoded->image, scaleOfFile(path),
                                              orientationWithNumber(decoded->orientation));
}

} // namespace zr
