#include <ZRPlatform/CoreGraphics/CairoAccess.h>

#include <ZRPlatform/CoreGraphics/Cairo/Internal/CairoContext.h>

namespace zr {

namespace {

CairoContext* drawingContext(CGContextRef context) {
    auto* drawing = dynamic_cast<CairoContext*>(context);
    return drawing && drawing->cairo() ? drawing : nullptr;
}

} // namespace

cairo_t* cairoOf(CGContextRef context) {
    CairoContext* drawing = drawingContext(context);
    if (!drawing || !drawing->canDraw())
        return nullptr;
    drawing->begin();
    const cairo_matrix_t user = drawing->userMatrix();
    cairo_set_matrix(drawing->cairo(), &user);
    return drawing->cairo();
}

void applyFillColor(CGContextRef context) {
    if (CairoContext* drawing = drawingContext(context))
        drawing->setSource(context->state().fillColor);
}

void applyColor(CGContextRef context, const RGBAColor& color) {
    if (CairoContext* drawing = drawingContext(context))
        drawing->setColor(color, context->state().alpha);
}

void cairoDone(CGContextRef context) {
    if (CairoContext* drawing = drawingContext(context))
        drawing->finish();
}

} // namespace zr
