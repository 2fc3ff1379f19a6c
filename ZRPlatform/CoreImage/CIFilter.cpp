#include <ZRPlatform/CoreImage/CIFilter.h>

#include <ZRPlatform/CoreImage/Internal/ImageRecipe.h>

namespace zr {

namespace {

constexpr const char* kGaussianBlurName = "CIGaussianBlur";

class GaussianBlurFilter : public CIFilter {
public:
    NSString name() const override { return kGaussianBlurName; }
    void setDefaults() override { m_inputRadius = kDefaultRadius; }
    Ref<CIImage> outputImage() const override {
        if (!m_inputImage || !m_inputImage->recipe())
            return nullptr;
        return CIImage::imageWithRecipe(blurRecipe(m_inputImage->recipe(), m_inputRadius));
    }

    CIImage* inputImage() const { return m_inputImage; }
    void setInputImage(CIImage* image) { m_inputImage = image; }
    double inputRadius() const { return m_inputRadius; }
    void setInputRadius(double radius) { m_inputRadius = radius; }

protected:
    const KeyTable& keyTable() const override {
        static const KeyTable table(
            CIFilter::keyTable(),
            {key<&GaussianBlurFilter::inputImage, &GaussianBlurFilter::setInputImage>(kCIInputImageKey),
             key<&GaussianBlurFilter::inputRadius, &GaussianBlurFilter::setInputRadius>(kCIInputRadiusKey)});
        return table;
    }

private:
    static constexpr double kDefaultRadius = 10;

    Ref<CIImage> m_inputImage;
    double m_inputRadius = kDefaultRadius;
};

} // namespace

const KeyTable& CIFilter::keyTable() const {
    static const KeyTable table(NSObject::keyTable(),
                                {key<&CIFilter::name>("name"), key<&CIFilter::outputImage>("outputImage")});
    return table;
}

Ref<CIFilter> CIFilter::filterWithName(const NSString& name) {
    if (name.isEqualToString(kGaussianBlurName))
        return make<GaussianBlurFilter>();
    return nullptr;
}

Ref<CIFilter> CIFilter::filterWithName_keysAndValues(const NSString& name,
                                                     const std::vector<std::pair<NSString, NSValue>>& keysAndValues) {
    auto filter = filterWithName(name);
    if (filter) {
        for (const auto& [key, value] : keysAndValues)
            filter->setValue_forKey(value, key);
    }
    return filter;
}

} // namespace zr
