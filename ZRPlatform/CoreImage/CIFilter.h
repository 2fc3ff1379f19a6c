#pragma once

#include <ZRPlatform/CoreImage/CIImage.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

#include <utility>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// A `CIImage`.
inline constexpr const char* kCIInputImageKey = "inputImage";
/// A number: pixels.
inline constexpr const char* kCIInputRadiusKey = "inputRadius";

/// Makes a picture from another one. Parameters are set by key, with `setValue_forKey`. These are known:
///
/// "CIGaussianBlur", with `kCIInputImageKey` and `kCIInputRadiusKey`, the standard deviation in pixels, 10 unless set:
/// each pixel becomes the mean of all, weighted by a Gaussian of their distance that is sampled at whole pixels. The
/// outside of the input is transparent, so edges fade. Colours are blurred as they are stored, premultiplied; every
/// channel is within 1 (of 255) of the exact result rounded. A radius that is negative or not a number counts as 0,
/// which changes nothing; one above 10 000 counts as 10 000. The extent grows by three radiuses, rounded up, on every
/// side: beyond that no channel of any picture reaches half of 1/255.
///
/// One filter may be used on one thread at a time.
class CIFilter : public NSObject {
public:
    /// With the defaults set. Nil for an unknown name.
    static Ref<CIFilter> filterWithName(const NSString& name);
    /// The same, with these parameters set one after the other; keys that it does not know are logged and otherwise
    /// ignored.
    static Ref<CIFilter> filterWithName_keysAndValues(const NSString& name,
                                                      const std::vector<std::pair<NSString, NSValue>>& keysAndValues);

    /// What `filterWithName` knows it by, for example "CIGaussianBlur".
    virtual NSString name() const = 0;
    /// Every parameter but the input image gets its default.
    virtual void setDefaults() = 0;
    /// The result with the parameters as they are now; nil without an input image. The key "outputImage" gives it too.
    virtual Ref<CIImage> outputImage() const = 0;

protected:
    const KeyTable& keyTable() const override;
};

} // namespace zr
#pragma GCC visibility pop
