#include <ZRPlatform/UIKit/Text/Internal/PangoTextLayout.h>

#include <ZRPlatform/CoreGraphics/CairoAccess.h>
#include <ZRPlatform/UIKit/Text/Internal/GlyphMasks.h>
#include <ZRPlatform/UIKit/Text/Internal/PangoFonts.h>

#include <hb-ot.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace zr {

namespace {

constexpr const char* kEllipsis = "\xE2\x80\xA6";
/// A line may stick out of the room by less than any screen shows.
constexpr CGFloat kTolerance = 1.0 / 64;
/// Bytes of a long text that are broken into lines at first.
constexpr std::size_t kFirstTried = 2048;

FontFace faceOf(const UIFont& font) { return {font.familyName(), font.weight(), font.isItalic()}; }

bool truncatesWithEllipsis(NSLineBreakMode mode) {
    return mode == NSLineBreakByTruncatingHead || mode == NSLineBreakByTruncatingTail ||
           mode == NSLineBreakByTruncatingMiddle;
}

PangoEllipsizeMode ellipsizeMode(NSLineBreakMode mode) {
    switch (mode) {
    case NSLineBreakByTruncatingHead:
        return PANGO_ELLIPSIZE_START;
    case NSLineBreakByTruncatingTail:
        return PANGO_ELLIPSIZE_END;
    case NSLineBreakByTruncatingMiddle:
        return PANGO_ELLIPSIZE_MIDDLE;
    default:
        return PANGO_ELLIPSIZE_NONE;
    }
}

struct Extent {
    CGFloat ascent;
    CGFloat descent;
};

/// How far the glyphs of other fonts than `font` reach.
Extent reachOfStandIns(PangoLayoutLine* line, const PangoFont* font) {
    Extent reach{0, 0};
    for (GSList* runs = line->runs; runs; runs = runs->next) {
        const auto* run = static_cast<PangoLayoutRun*>(runs->data);
        PangoFont* used = run->item->analysis.font;
        if (used == font)
            continue;
        PangoRectangle ink;
        pango_glyph_string_extents(run->glyphs, used, &ink, nullptr);
        reach.ascent = std::max(reach.ascent, pointsOfPango(PANGO_ASCENT(ink)));
        reach.descent = std::max(reach.descent, pointsOfPango(PANGO_DESCENT(ink)));
    }
    return reach;
}

/// Pango widens the ellipsis to fill the whole width, which would leave a gap beside it and the text out of the middle.
void narrowEllipsis(PangoLayoutLine* line) {
    for (GSList* runs = line->runs; runs; runs = runs->next) {
        auto* run = static_cast<PangoLayoutRun*>(runs->data);
        if (!(run->item->analysis.flags & PANGO_ANALYSIS_FLAG_IS_ELLIPSIS) || run->glyphs->num_glyphs == 0)
            continue;
        PangoGlyphInfo& last = run->glyphs->glyphs[run->glyphs->num_glyphs - 1];
        PangoRectangle logical;
        pango_font_get_glyph_extents(run->item->analysis.font, last.glyph, nullptr, &logical);
        last.geometry.width = logical.width;
    }
}

/// A line stays as high as its font's lines for what reaches beyond it by next to nothing, as most emoji do.
CGFloat grownTo(CGFloat reach, CGFloat own, CGFloat pointSize) { return reach > own + pointSize / 32 ? reach : own; }

/// The nearest beginning of a character, downwards.
std::size_t characterStart(const std::string& text, std::size_t place) {
    while (place > 0 && place < text.size() && (static_cast<unsigned char>(text[place]) & 0xC0) == 0x80)
        --place;
    return place;
}

/// Takes out what could not be seen of a line, as shaping it would take long: its end, its beginning or its middle, by
/// what will be truncated. Whether there was such.
bool cutLongLine(std::string& line, NSLineBreakMode mode) {
    if (line.size() <= TextRequest::longestLine)
        return false;
    std::size_t first = TextRequest::longestLine, last = line.size();
    if (mode == NSLineBreakByTruncatingHead)
        first = 0, last = line.size() - TextRequest::longestLine;
    else if (mode == NSLineBreakByTruncatingMiddle)
        first = TextRequest::longestLine / 2, last = line.size() - TextRequest::longestLine / 2;
    first = characterStart(line, first);
    line.erase(first, characterStart(line, last) - first);
    return true;
}

/// How many lines the room can take at most; nothing where that is without limit.
std::optional<std::size_t> mostLines(const TextRequest& request) {
    std::optional<std::size_t> most;
    if (request.lineLimit > 0)
        most = request.lineLimit;
    const CGFloat byHeight = request.height / (request.font->ascender() - request.font->descender()) + 1;
    if (byHeight < static_cast<CGFloat>(request.text.length()))
        most = std::min(most.value_or(SIZE_MAX), static_cast<std::size_t>(byHeight));
    return most;
}

bool readsRightToLeft(PangoLayoutLine* line) {
    return pango_layout_line_get_resolved_direction(line) == PANGO_DIRECTION_RTL;
}

/// Where a line begins in a room of this width.
CGFloat alignedX(const TextLine& line, CGFloat room, NSTextAlignment alignment, bool rightToLeft) {
    const CGFloat space = room - line.width;
    const CGFloat natural = rightToLeft ? space : 0;
    if (space < 0)
        return natural; // too wide: what is read first shows
    switch (alignment) {
    case NSTextAlignmentLeft:
        return 0;
    case NSTextAlignmentCenter:
        return space / 2;
    case NSTextAlignmentRight:
        return space;
    default:
        return natural;
    }
}

/// The baseline on a whole pixel, unless the drawing is turned.
double onPixel(cairo_t* cairo, double x, double y) {
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo, &matrix);
    if (matrix.xy != 0 || matrix.yx != 0)
        return y;
    cairo_user_to_device(cairo, &x, &y);
    y = std::floor(y + 0.5);
    cairo_device_to_user(cairo, &x, &y);
    return y;
}

int asInt(std::size_t value) { return static_cast<int>(value); }

bool drawsPictures(PangoFont* font) {
    hb_face_t* face = hb_font_get_face(pango_font_get_hb_font(font));
    return hb_ot_color_has_png(face) || hb_ot_color_has_layers(face) || hb_ot_color_has_svg(face);
}

/// Draws glyphs as shapes, small ones by masks of them: as glyphs, Cairo would move each to a whole pixel, which spaces
/// small text unevenly. Only pictures, such as emoji, have to be drawn as glyphs.
void drawLine(cairo_t* cairo, PangoLayoutLine* line, double x, double baseline) {
    for (const GSList* link = line->runs; link; link = link->next) {
        auto* run = static_cast<PangoGlyphItem*>(link->data);
        PangoFont* font = run->item->analysis.font;
        x += double(run->start_x_offset) / PANGO_SCALE;
        const CGPoint origin{x, baseline - double(run->y_offset) / PANGO_SCALE};
        cairo_move_to(cairo, origin.x, origin.y);
        if (drawsPictures(font)) {
            pango_cairo_show_glyph_string(cairo, font, run->glyphs);
        } else if (!GlyphMasks::shared().draw(cairo, font, run->glyphs, origin)) {
            pango_cairo_glyph_string_path(cairo, font, run->glyphs);
            cairo_fill(cairo);
        }
        x += double(pango_glyph_string_get_width(run->glyphs) + run->end_x_offset) / PANGO_SCALE;
    }
}

} // namespace

PangoTextLayout::PangoTextLayout(CGFloat lineHeight) : m_indices(std::string()), m_fontLineHeight(lineHeight) {}

PangoTextLayout::PangoTextLayout(const TextRequest& request) :
    m_indices(request.text.utf8()), m_fontLineHeight(request.font->lineHeight()) {
    PangoFontDescription* description = PangoFonts::description(faceOf(*request.font), request.font->pointSize());
    m_font = pango_context_load_font(PangoFonts::shared().context(), description);
    pango_font_description_free(description);
    const bool wraps = request.lineLimit != 1 || request.lineBreakMode <= NSLineBreakByCharWrapping;
    if (wraps)
        layOutLines(request);
    else
        layOutLastLine(request, 0);
    placeLines(request);
}

PangoTextLayout::~PangoTextLayout() {
    if (m_layouts.empty() && !m_font)
        return;
    const std::lock_guard lock(pangoMutex());
    for (const PangoLine& line : m_pangoLines)
        pango_layout_line_unref(line.line);
    for (PangoLayout* layout : m_layouts)
        g_object_unref(layout);
    g_clear_object(&m_font);
}

PangoLayout* PangoTextLayout::makeLayout(const TextRequest& request, const std::string& text) {
    PangoLayout* layout = pango_layout_new(PangoFonts::shared().context());
    m_layouts.push_back(layout);
    PangoFontDescription* description = PangoFonts::description(faceOf(*request.font), request.font->pointSize());
    pango_layout_set_font_description(layout, description);
    pango_font_description_free(description);
    pango_layout_set_text(layout, text.data(), asInt(text.size()));
    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE)); // where a word breaks by character
    pango_layout_set_attributes(layout, attributes);
    pango_attr_list_unref(attributes);
    return layout;
}

/// Broken into lines as far as can be seen: shaping all of a long text would take long. How a line ends depends on
/// nothing that is more than a line behind it.
PangoLayout* PangoTextLayout::makeBrokenLayout(const TextRequest& request) {
    const std::string& text = m_indices.text();
    const auto most = mostLines(request);
    for (std::size_t tried = kFirstTried;; tried *= 4) {
        const bool isAll = !most || tried >= text.size();
        PangoLayout* layout = makeLayout(request, isAll ? text : text.substr(0, characterStart(text, tried)));
        pango_layout_set_width(layout, pangoUnits(request.width));
        pango_layout_set_wrap(layout, request.lineBreakMode == NSLineBreakByCharWrapping ? PANGO_WRAP_CHAR
                                                                                         : PANGO_WRAP_WORD_CHAR);
        pango_layout_set_justify(layout, request.alignment == NSTextAlignmentJustified);
        if (isAll || static_cast<std::size_t>(pango_layout_get_line_count(layout)) > *most + 1)
            return layout;
        m_layouts.pop_back();
        g_object_unref(layout);
    }
}

void PangoTextLayout::layOutLines(const TextRequest& request) {
    PangoLayout* layout = makeBrokenLayout(request);
    CGFloat height = 0;
    for (GSList* lines = pango_layout_get_lines_readonly(layout); lines; lines = lines->next) {
        if (request.lineLimit > 0 && m_lines.size() == request.lineLimit) {
            m_truncated = true;
            break;
        }
        addLine(request, static_cast<PangoLayoutLine*>(lines->data), 0);
        height += m_lines.back().ascent + m_lines.back().descent;
        if (m_lines.size() > 1 && height > request.height + kTolerance) {
            removeLastLine();
            m_truncated = true;
            break;
        }
    }
    if (m_truncated && request.lineBreakMode > NSLineBreakByCharWrapping) {
        const std::size_t start = m_indices.byteAtUTF16(m_lines.back().range.location);
        removeLastLine();
        layOutLastLine(request, start);
    }
}

void PangoTextLayout::layOutLastLine(const TextRequest& request, std::size_t start) {
    std::string text = m_indices.text().substr(start);
    const std::size_t lineBreak = text.find_first_of("\r\n");
    bool hasMore = lineBreak != std::string::npos;
    if (request.lineBreakMode == NSLineBreakByTruncatingTail || request.lineBreakMode == NSLineBreakByClipping) {
        text.resize(std::min(lineBreak, text.size()));
        if (std::isfinite(request.width))
            hasMore = cutLongLine(text, request.lineBreakMode) || hasMore;
        if (hasMore && request.lineBreakMode == NSLineBreakByTruncatingTail)
            text += kEllipsis;
    } else {
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
        if (std::isfinite(request.width))
            cutLongLine(text, request.lineBreakMode);
    }
    PangoLayout* layout = makeLayout(request, text);
    pango_layout_set_single_paragraph_mode(layout, TRUE);
    if (truncatesWithEllipsis(request.lineBreakMode)) {
        pango_layout_set_ellipsize(layout, ellipsizeMode(request.lineBreakMode));
        pango_layout_set_width(layout, pangoUnits(request.width));
    }
    PangoLayoutLine* line = pango_layout_get_line(layout, 0);
    narrowEllipsis(line);
    addLine(request, line, start);
    if (request.lineBreakMode != NSLineBreakByClipping)
        m_lines.back().range.length = m_indices.length() - m_lines.back().range.location;
    m_truncated = m_truncated || hasMore || pango_layout_is_ellipsized(layout) ||
                  m_lines.back().width > request.width + kTolerance;
}

void PangoTextLayout::addLine(const TextRequest& request, PangoLayoutLine* line, std::size_t offset) {
    PangoRectangle logical;
    pango_layout_line_get_extents(line, nullptr, &logical);
    const Extent reach = reachOfStandIns(line, m_font);
    const auto first = offset + static_cast<std::size_t>(line->start_index);
    TextLine placed;
    placed.range.location = m_indices.utf16AtByte(first);
    placed.range.length = m_indices.utf16AtByte(first + static_cast<std::size_t>(line->length)) - placed.range.location;
    placed.width = pointsOfPango(logical.width);
    placed.ascent = grownTo(reach.ascent, request.font->ascender(), request.font->pointSize());
    placed.descent = grownTo(reach.descent, -request.font->descender(), request.font->pointSize());
    m_lines.push_back(placed);
    m_pangoLines.push_back({pango_layout_line_ref(line), offset});
}

void PangoTextLayout::removeLastLine() {
    pango_layout_line_unref(m_pangoLines.back().line);
    m_pangoLines.pop_back();
    m_lines.pop_back();
}

void PangoTextLayout::placeLines(const TextRequest& request) {
    for (const TextLine& line : m_lines)
        m_size.width = std::max(m_size.width, line.width);
    const CGFloat room = std::isfinite(request.width) ? request.width : m_size.width;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        TextLine& line = m_lines[i];
        line.baseline = m_size.height + line.ascent;
        line.x = alignedX(line, room, request.alignment, readsRightToLeft(m_pangoLines[i].line));
        m_size.height += line.ascent + line.descent;
    }
}

void PangoTextLayout::drawAtPoint(CGContextRef context, CGPoint origin) const {
    if (m_lines.empty() || !std::isfinite(origin.x) || !std::isfinite(origin.y))
        return;
    const std::lock_guard lock(pangoMutex());
    cairo_t* cairo = cairoOf(context);
    if (!cairo)
        return;
    cairo_save(cairo);
    applyFillColor(context);
    double left, top, right, bottom;
    cairo_clip_extents(cairo, &left, &top, &right, &bottom);
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const TextLine& line = m_lines[i];
        // Marks may reach into the neighbouring lines.
        const CGFloat height = line.ascent + line.descent;
        if (origin.y + line.bottom() + height < top || origin.y + line.top() - height > bottom)
            continue;
        const double x = origin.x + line.x;
        drawLine(cairo, m_pangoLines[i].line, x, onPixel(cairo, x, origin.y + line.baseline));
    }
    cairo_new_path(cairo);
    cairo_restore(cairo);
    cairoDone(context);
}

std::size_t PangoTextLayout::lineAtHeight(CGFloat y) const {
    for (std::size_t i = 0; i + 1 < m_lines.size(); ++i) {
        if (y < m_lines[i].bottom())
            return i;
    }
    return m_lines.size() - 1;
}

std::size_t PangoTextLayout::lineOfByte(std::size_t byte) const {
    std::size_t found = 0;
    for (std::size_t i = 1; i < m_pangoLines.size(); ++i) {
        const PangoLine& line = m_pangoLines[i];
        if (line.offset + static_cast<std::size_t>(line.line->start_index) <= byte)
            found = i;
    }
    return found;
}

std::size_t PangoTextLayout::byteAtPoint(CGPoint point, bool nearestEdge) const {
    const std::size_t number = lineAtHeight(point.y);
    const PangoLine& line = m_pangoLines[number];
    int index = 0;
    int trailing = 0;
    const CGFloat x = std::clamp<CGFloat>(point.x - m_lines[number].x, -1, m_lines[number].width + 1);
    pango_layout_line_x_to_index(line.line, static_cast<int>(x * PANGO_SCALE), &index, &trailing);
    std::size_t byte = std::min(line.offset + static_cast<std::size_t>(index), m_indices.text().size());
    if (nearestEdge) {
        const char* place = m_indices.text().data() + byte;
        for (; trailing > 0 && *place; --trailing)
            place = g_utf8_next_char(place);
        byte = static_cast<std::size_t>(place - m_indices.text().data());
    }
    return byte;
}

NSUInteger PangoTextLayout::indexAtPoint(CGPoint point) const {
    if (m_lines.empty() || std::isnan(point.x) || std::isnan(point.y))
        return 0;
    const std::lock_guard lock(pangoMutex());
    return m_indices.utf16AtByte(byteAtPoint(point, true));
}

NSUInteger PangoTextLayout::characterAtPoint(CGPoint point) const {
    if (m_lines.empty() || std::isnan(point.x) || std::isnan(point.y))
        return 0;
    const std::lock_guard lock(pangoMutex());
    return m_indices.utf16AtByte(byteAtPoint(point, false));
}

CGRect PangoTextLayout::caretRect(NSUInteger index) const {
    if (m_lines.empty())
        return CGRectMake(0, 0, 0, m_fontLineHeight);
    const std::lock_guard lock(pangoMutex());
    const std::size_t byte = m_indices.byteAtUTF16(index);
    const std::size_t number = lineOfByte(byte);
    const PangoLine& line = m_pangoLines[number];
    const std::size_t first = line.offset + static_cast<std::size_t>(line.line->start_index);
    const TextLine& placed = m_lines[number];
    int x = 0;
    if (byte < first + static_cast<std::size_t>(line.line->length))
        pango_layout_line_index_to_x(line.line, asInt(byte - line.offset), FALSE, &x);
    else
        x = readsRightToLeft(line.line) ? 0 : static_cast<int>(placed.width * PANGO_SCALE);
    return CGRectMake(placed.x + pointsOfPango(x), placed.top(), 0, placed.ascent + placed.descent);
}

std::vector<CGRect> PangoTextLayout::selectionRects(NSRange range) const {
    std::vector<CGRect> rects;
    const NSUInteger location = std::min(range.location, m_indices.length());
    const NSUInteger end = location + std::min(range.length, m_indices.length() - location);
    const std::size_t firstByte = m_indices.byteAtUTF16(location);
    const std::size_t lastByte = m_indices.byteAtUTF16(end);
    const std::lock_guard lock(pangoMutex());
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const PangoLine& line = m_pangoLines[i];
        const std::size_t start = line.offset + static_cast<std::size_t>(line.line->start_index);
        const std::size_t from = std::max(firstByte, start);
        const std::size_t to = std::min(lastByte, start + static_cast<std::size_t>(line.line->length));
        if (from >= to)
            continue;
        int* ranges = nullptr;
        int count = 0;
        // Pango adds its own alignment, which the whole line's left edge shows.
        pango_layout_line_get_x_ranges(line.line, line.line->start_index, line.line->start_index + line.line->length,
                                       &ranges, &count);
        const int left = count > 0 ? *std::min_element(ranges, ranges + 2 * count) : 0;
        g_free(ranges);
        pango_layout_line_get_x_ranges(line.line, asInt(from - line.offset), asInt(to - line.offset), &ranges, &count);
        for (int k = 0; k < count; ++k) {
            const TextLine& placed = m_lines[i];
            rects.push_back(CGRectMake(placed.x + pointsOfPango(ranges[2 * k] - left), placed.top(),
                                       pointsOfPango(ranges[2 * k + 1] - ranges[2 * k]),
                                       placed.ascent + placed.descent));
        }
        g_free(ranges);
    }
    return rects;
}

NSUInteger PangoTextLayout::nextIndex(NSUInteger index) const {
    const std::vector<NSUInteger> positions =
        TextEngine::current().caretPositions(NSString(std::string_view(m_indices.text())));
    const auto next = std::upper_bound(positions.begin(), positions.end(), index);
    return next == positions.end() ? positions.back() : *next;
}

NSUInteger PangoTextLayout::previousIndex(NSUInteger index) const {
    const std::vector<NSUInteger> positions =
        TextEngine::current().caretPositions(NSString(std::string_view(m_indices.text())));
    const auto next = std::lower_bound(positions.begin(), positions.end(), index);
    return next == positions.begin() ? 0 : *std::prev(next);
}

NSUInteger PangoTextLayout::moveVisually(NSUInteger index, int direction) const {
    if (m_layouts.empty())
        return 0;
    const std::lock_guard lock(pangoMutex());
    const std::string& text = m_indices.text();
    int found = 0;
    int trailing = 0;
    pango_layout_move_cursor_visually(m_layouts.front(), TRUE, asInt(m_indices.byteAtUTF16(index)), 0, direction,
                                      &found, &trailing);
    if (found < 0 || static_cast<std::size_t>(found) > text.size())
        return index; // beyond an edge
    const char* place = text.data() + found;
    for (; trailing > 0 && *place; --trailing)
        place = g_utf8_next_char(place);
    return m_indices.utf16AtByte(static_cast<std::size_t>(place - text.data()));
}

NSUInteger PangoTextLayout::indexLeftOf(NSUInteger index) const { return moveVisually(index, -1); }
NSUInteger PangoTextLayout::indexRightOf(NSUInteger index) const { return moveVisually(index, 1); }

NSRange PangoTextLayout::wordAtIndex(NSUInteger index) const {
    if (m_layouts.empty())
        return {};
    const std::lock_guard lock(pangoMutex());
    const std::string& text = m_indices.text();
    int count = 0;
    const PangoLogAttr* attributes = pango_layout_get_log_attrs_readonly(m_layouts.front(), &count);
    const int characters = count - 1;
    if (characters <= 0)
        return {};
    const char* here = text.data() + m_indices.byteAtUTF16(index);
    const int at = std::min(static_cast<int>(g_utf8_pointer_to_offset(text.data(), here)), characters - 1);
    int first = at;
    while (first > 0 && !attributes[first].is_word_start && !attributes[first].is_word_end)
        --first;
    int end = at + 1;
    if (attributes[first].is_word_start) {
        while (end < characters && !attributes[end].is_word_end)
            ++end;
    } else {
        first = at;
        if (attributes[at].is_white) {
            while (first > 0 && attributes[first - 1].is_white)
                --first;
            while (end < characters && attributes[end].is_white)
                ++end;
        } else {
            while (first > 0 && !attributes[first].is_cursor_position)
                --first;
            while (end < characters && !attributes[end].is_cursor_position)
                ++end;
        }
    }
    const auto unitOf = [&](int character) {
        return m_indices.utf16AtByte(
            static_cast<std::size_t>(g_utf8_offset_to_pointer(text.data(), character) - text.data()));
    };
    const NSUInteger location = unitOf(first);
    return {location, unitOf(end) - location};
}

} // namespace zr
