#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>

#pragma GCC visibility push(default)
namespace zr {

struct FontFace;

/// A typeface at a size. Immutable; may be used on any thread.
///
/// Nothing of a font is rounded to pixels: all its measures grow in proportion to its size, and a text is as wide on
/// one screen as on another. Characters that the typeface lacks (Chinese, Arabic, emoji …) are taken from other fonts.
///
/// Sizes are in points, 0 to 2048: below and above are cut to that, not-a-number is 0. A font of size 0 draws nothing.
class UIFont : public NSObject {
public:
    /// The regular font of the system's typeface, Inter.
    static Ref<UIFont> systemFontOfSize(CGFloat size);
    /// The bold font of the system's typeface.
    static Ref<UIFont> boldSystemFontOfSize(CGFloat size);
    /// The italic font of the system's typeface.
    static Ref<UIFont> italicSystemFontOfSize(CGFloat size);
    /// `name`: of one font ("Inter-Bold", "Inter Bold") or of a family, whose regular font it then is. Capitals do not
    /// matter. Nil when there is none of this name.
    static Ref<UIFont> fontWithName_size(const NSString& name, CGFloat size);

    /// @name Sizes of the system font, in points
    /// @{
    /// 17, for labels.
    static CGFloat labelFontSize() { return 17; }
    /// 14, for what is neither of the others.
    static CGFloat systemFontSize() { return 14; }
    /// 18, for the titles of buttons.
    static CGFloat buttonFontSize() { return 18; }
    /// 12, for what is to be small.
    static CGFloat smallSystemFontSize() { return 12; }
    /// @}

    /// The size, 0 to 2048 points.
    CGFloat pointSize() const { return m_pointSize; }
    /// For example "Inter-Bold".
    const NSString& fontName() const { return m_fontName; }
    /// For example "Inter".
    const NSString& familyName() const { return m_familyName; }
    /// The same typeface in another size.
    Ref<UIFont> fontWithSize(CGFloat size) const;
    /// The same typeface and size.
    bool isEqual(const NSObject* other) const override;

    /// @name Measures, in points
    /// Heights above the baseline; the descender lies below it and is negative.
    /// @{
    /// How far the font's line reaches above the baseline.
    CGFloat ascender() const { return m_pointSize * m_ascender; }
    /// How far it reaches below the baseline; negative.
    CGFloat descender() const { return m_pointSize * m_descender; }
    /// From one baseline to the next: ascender minus descender.
    CGFloat lineHeight() const { return m_pointSize * (m_ascender - m_descender); }
    /// How high capitals are.
    CGFloat capHeight() const { return m_pointSize * m_capHeight; }
    /// How high small letters are, an x for example.
    CGFloat xHeight() const { return m_pointSize * m_xHeight; }
    /// @}

    /// @name For the text engine
    /// @{
    /// 100 (thin) to 900 (black); regular is 400, bold 700.
    int weight() const { return m_weight; }
    /// Whether its letters are slanted.
    bool isItalic() const { return m_italic; }
    /// @}

private:
    static Ref<UIFont> systemFont(int weight, bool italic, CGFloat size);
    static Ref<UIFont> fontWithFace(const FontFace& face, CGFloat size);

    NSString m_fontName;
    NSString m_familyName;
    CGFloat m_pointSize = 0;
    int m_weight = 400;
    bool m_italic = false;
    /// Of a font of one point.
    /// @{
    CGFloat m_ascender = 0;
    CGFloat m_descender = 0;
    CGFloat m_capHeight = 0;
    CGFloat m_xHeight = 0;
    /// @}
};

} // namespace zr
#pragma GCC visibility pop
