#include <Gallery/List/SearchField.h>

#include <Gallery/Look/Look.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>

namespace zr::gallery {

namespace {
constexpr CGFloat kGlassMargin = 9;
constexpr CGFloat kGlassGap = 7;

/// The picture, with the gap to the text at its right.
Ref<UIView> makeGlass() {
    auto glass = make<UIImageView>(&UIImageView::initWithImage, UIImage::imageNamed("gallery_search.png"));
    glass->setContentMode(UIViewContentModeLeft);
    const CGSize size = glass->bounds().size;
    glass->setFrame(CGRectMake(0, 0, size.width + kGlassGap, size.height));
    return glass;
}

} // namespace

bool SearchField::initWithFrame(CGRect frame) {
    if (!UITextField::initWithFrame(frame))
        return false;
    setBorderStyle(UITextBorderStyleRoundedRect);
    setFont(UIFont::systemFontOfSize(15));
    setTextColor(Look::titleColor());
    setTintColor(Look::green());
    setPlaceholder("Search");
    setAutocorrectionType(UITextAutocorrectionTypeNo);
    setAutocapitalizationType(UITextAutocapitalizationTypeNone);
    setReturnKeyType(UIReturnKeySearch);
    setClearButtonMode(UITextFieldViewModeAlways);
    setLeftView(makeGlass());
    setLeftViewMode(UITextFieldViewModeAlways);
    setDelegate(this);
    addTarget_action_forControlEvents(this, selector<&SearchField::wordsChanged>, UIControlEventEditingChanged);
    return true;
}

CGRect SearchField::leftViewRectForBounds(CGRect bounds) const {
    return CGRectOffset(UITextField::leftViewRectForBounds(bounds), kGlassMargin, 0);
}

bool SearchField::textFieldShouldReturn(UITextField*) {
    resignFirstResponder();
    return true;
}

void SearchField::wordsChanged() {
    if (m_searchAction)
        m_searchAction(text());
}

} // namespace zr::gallery
