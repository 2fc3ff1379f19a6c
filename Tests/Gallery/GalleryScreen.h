#pragma once

#include <Gallery/Pages/Page.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <string>
#include <vector>

namespace zr::test {

/// The gallery on a screen that nobody sees, with one page open and its component shown.
class GalleryScreen {
public:
    /// `page`: empty for the list.
    explicit GalleryScreen(const std::string& page, const DeviceProfile& profile = {},
                           gallery::SampleText::Language language = gallery::SampleText::Language::English);

    HeadlessHost host;

    /// All views of class `T` that are in a window, the lowest first.
    template <class T>
    std::vector<T*> all() const {
        std::vector<T*> found;
        for (UIView* view : views()) {
            if (auto* wanted = dynamic_cast<T*>(view))
                found.push_back(wanted);
        }
        return found;
    }
    /// The topmost HUD; nil when there is none.
    ZRProgressHUD* hud() const;
    /// How much of it shows at this moment, 0..1; 0 when there is none.
    CGFloat seenAlpha() const;
    /// What the HUD's indicator shows; -1 when it shows no progress.
    float seenProgress() const;

    /// Touches the middle of the button with this title. A failure of the test when there is none.
    void tapButton(const std::string& title);
    /// On the screen.
    static CGPoint middleOf(const UIView* view);
    void tapBack() { host.tap({30, 42}); }
    /// Whether a label with this text is on the screen.
    bool shows(const std::string& text) const { return labelWithText(text) != nullptr; }

private:
    std::vector<UIView*> views() const;
    UILabel* labelWithText(const std::string& text) const;
};

} // namespace zr::test
