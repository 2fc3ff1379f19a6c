#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>
#include <ZRPlatform/Foundation/Ref.h>

#include <functional>
#include <string_view>
#include <vector>

namespace zr {

class ZRTViewController;

} // namespace zr

namespace zr::gallery {

class PageView;

/// One page of the gallery: what the list says of it, and how its contents are made.
struct Page {
    /// In kebab case: what the command line and the rendered files call it.
    const char* name;
    const char* title;
    /// The section of the list; pages of one family follow one another.
    const char* family;
    /// One line for the list.
    const char* detail;
    /// A resource of 30 x 30 points.
    const char* icon;
    /// What there is to see, above the live component.
    const char* description;
    /// Adds the component and what belongs to it to a column; null for a page that has a screen of its own.
    std::function<void(PageView&)> build;
    /// Seconds from showing the component to the page's picture: long enough for an alert to have come up and for the
    /// components that move to be under way.
    NSTimeInterval pictureTime = 1.1;
    /// Makes the screen of a page that is more than a column of components. It shows the description itself.
    std::function<Ref<ZRTViewController>(const Page&)> makeScreen = nullptr;
};

/// In the order of the list.
const std::vector<Page>& allPages();
/// Null when there is none of that name.
const Page* pageNamed(std::string_view name);

/// The pages of one source file each.
std::vector<Page> alertStylePages();
std::vector<Page> alertButtonPages();
std::vector<Page> alertTextPages();
std::vector<Page> alertOwnPages();
std::vector<Page> toastPages();
std::vector<Page> tipsPages();
std::vector<Page> hudIndicatorPages();
std::vector<Page> hudTextPages();
std::vector<Page> hudBoxPages();
std::vector<Page> hudTimePages();
std::vector<Page> hudTaskPages();
std::vector<Page> progressPages();
std::vector<Page> buttonPages();
std::vector<Page> labelPages();
std::vector<Page> controlPages();
std::vector<Page> imagePages();
std::vector<Page> animationPages();
std::vector<Page> barPages();
std::vector<Page> barPartPages();
std::vector<Page> screenPages();
std::vector<Page> cellPages();
std::vector<Page> longListPages();
std::vector<Page> swipeListPages();
std::vector<Page> swipeResetPages();
std::vector<Page> themePages();
std::vector<Page> colorPartPages();
std::vector<Page> gradientPages();

} // namespace zr::gallery
