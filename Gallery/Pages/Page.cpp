#include <Gallery/Pages/Page.h>

#include <algorithm>

namespace zr::gallery {

const std::vector<Page>& allPages() {
    static const std::vector<Page> pages = [] {
        std::vector<Page> all;
        for (const auto& pagesOfOneKind :
             {alertStylePages(), alertButtonPages(),  alertTextPages(), alertOwnPages(),   toastPages(),
              tipsPages(),       hudIndicatorPages(), hudTextPages(),   hudBoxPages(),     hudTimePages(),
              hudTaskPages(),    progressPages(),     buttonPages(),    labelPages(),      controlPages(),
              imagePages(),      animationPages(),    barPages(),       barPartPages(),    screenPages(),
              cellPages(),       longListPages(),     swipeListPages(), swipeResetPages(), themePages(),
              colorPartPages(),  gradientPages()})
            all.insert(all.end(), pagesOfOneKind.begin(), pagesOfOneKind.end());
        return all;
    }();
    return pages;
}

const Page* pageNamed(std::string_view name) {
    const auto& pages = allPages();
    const auto found = std::find_if(pages.begin(), pages.end(), [&](const Page& page) { return page.name == name; });
    return found == pages.end() ? nullptr : &*found;
}

} // namespace zr::gallery
