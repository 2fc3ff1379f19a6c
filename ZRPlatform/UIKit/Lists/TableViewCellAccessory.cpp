#include <ZRPlatform/UIKit/Lists/Internal/TableViewCellAccessory.h>

#include <ZRPlatform/UIKit/Images/UIBezierPath.h>

#include <algorithm>
#include <initializer_list>

namespace zr {

namespace {

constexpr CGSize kChevronSize{8, 13};
constexpr CGSize kCheckmarkSize{14, 11};
constexpr CGSize kButtonSize{22, 22};
/// Between the button and the chevron.
constexpr CGFloat kGap = 12;

void strokeLine(std::initializer_list<CGPoint> points, CGFloat width) {
    const auto path = UIBezierPath::bezierPath();
    path->moveToPoint(*points.begin());
    for (const CGPoint* point = points.begin() + 1; point != points.end(); ++point)
        path->addLineToPoint(*point);
    path->setLineWidth(width);
    path->stroke();
}

/// Clear behind what it draws, and no target of touches.
class Mark : public UIView {
public:
    bool initWithFrame(CGRect frame) override {
        if (!UIView::initWithFrame(frame))
            return false;
        setOpaque(false);
        setUserInteractionEnabled(false);
        return true;
    }
};

class Chevron : public Mark {
public:
    void drawRect(CGRect) override {
        UIColor::colorWithRed_green_blue_alpha(199 / 255.0, 199 / 255.0, 204 / 255.0, 1)->setStroke();
        strokeLine({{1, 1}, {6.5, 6.5}, {1, 12}}, 2);
    }
};

class Checkmark : public Mark {
public:
    void drawRect(CGRect) override {
        tintColor()->setStroke();
        strokeLine({{1, 6}, {5, 10}, {13, 1}}, 2);
    }
    void tintColorDidChange() override { setNeedsDisplay(); }
};

/// An i in a circle, paler while it is touched.
class DetailButton : public UIControl {
public:
    bool initWithFrame(CGRect frame) override {
        if (!UIControl::initWithFrame(frame))
            return false;
        setOpaque(false);
        return true;
    }
    void drawRect(CGRect) override {
        const auto color = isHighlighted() ? tintColor()->colorWithAlphaComponent(0.3) : Ref<UIColor>(tintColor());
        color->setStroke();
        color->setFill();
        const auto circle = UIBezierPath::bezierPathWithOvalInRect(CGRectInset(bounds(), 1, 1));
        circle->setLineWidth(1);
        circle->stroke();
        UIBezierPath::bezierPathWithOvalInRect({{10, 5.5}, {2, 2}})->fill();
        UIBezierPath::bezierPathWithRect({{10.25, 9}, {1.5, 7.5}})->fill();
    }
    void tintColorDidChange() override { setNeedsDisplay(); }

protected:
    void stateChanged() override { setNeedsDisplay(); }
};

template <class Part>
Ref<Part> makePart(CGSize size) {
    return make<Part>(&UIView::initWithFrame, CGRect{{0, 0}, size});
}

} // namespace

bool TableViewCellAccessory::initWithType(UITableViewCellAccessoryType type) {
    if (!UIView::initWithFrame(CGRectZero))
        return false;
    std::vector<Ref<UIView>> parts;
    if (type == UITableViewCellAccessoryDetailButton || type == UITableViewCellAccessoryDetailDisclosureButton) {
        m_button = makePart<DetailButton>(kButtonSize);
        parts.emplace_back(m_button);
    }
    if (type == UITableViewCellAccessoryDisclosureIndicator || type == UITableViewCellAccessoryDetailDisclosureButton)
        parts.emplace_back(makePart<Chevron>(kChevronSize));
    if (type == UITableViewCellAccessoryCheckmark)
        parts.emplace_back(makePart<Checkmark>(kCheckmarkSize));

    CGSize size;
    for (const auto& part : parts) {
        const CGSize partSize = part->bounds().size;
        const CGFloat left = size.width > 0 ? size.width + kGap : 0;
        part->setFrame({{left, 0}, partSize});
        size = {left + partSize.width, std::max(size.height, partSize.height)};
        addSubview(part);
    }
    setBounds({{0, 0}, size});
    for (const auto& part : parts)
        part->setCenter({part->center().x, size.height / 2});
    return true;
}

} // namespace zr
