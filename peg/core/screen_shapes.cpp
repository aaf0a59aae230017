#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>

#include "peg/core/screen.h"
#include "peg/core/screen_clip.h"

// Rectangles, lines, circles and arcs, made of filled rectangles.

namespace {

constexpr int kLargestRadius = 0x3FFF;

/// The rows of an ellipse from the top. Its edge runs half a pixel outside its radii, so that a radius of 0 is one
/// pixel.
class EllipseRows {
public:
    EllipseRows(int radiusX, int radiusY)
        : m_row(-radiusY), m_stepX(4 * Squared(2 * radiusY + 1)), m_stepY(4 * Squared(2 * radiusX + 1)) {
        m_excess = m_stepY * Squared(radiusY) - m_stepX * m_stepY / 16;
    }

    /// How far the next row reaches to either side of the centre.
    int Next() {
        while (m_excess + m_stepX * (2 * m_half + 1) <= 0) m_excess += m_stepX * (2 * m_half++ + 1);
        while (m_excess > 0) m_excess -= m_stepX * (2 * --m_half + 1);
        m_excess += m_stepY * (2 * m_row++ + 1);
        return m_half;
    }

private:
    static std::int64_t Squared(std::int64_t value) { return value * value; }

    int m_row;
    int m_half = 0;
    std::int64_t m_stepX;
    std::int64_t m_stepY;
    std::int64_t m_excess;  // above 0: the point in row m_row and column m_half lies outside
};

/// The rows of the band of a pen's width between an ellipse and a smaller one, from the top.
class RingRows {
public:
    struct Row {
        int reach;   // of the outer edge, to either side of the centre
        int hollow;  // of what the pen leaves empty; -1 where it leaves nothing

        bool operator==(const Row&) const = default;
    };

    RingRows(int radiusX, int radiusY, int penWidth)
        : m_outer(radiusX, radiusY),
          m_inner(radiusX - penWidth, radiusY - penWidth),
          m_hasPen(penWidth > 0),
          m_innerRadius(radiusX >= penWidth ? radiusY - penWidth : -1),
          m_row(-radiusY) {}

    Row Next() {
        const int reach = m_outer.Next();
        const bool isHollow = std::abs(m_row++) <= m_innerRadius;
        if (!m_hasPen) return {reach, reach};
        return {reach, isHollow ? m_inner.Next() : -1};
    }

private:
    EllipseRows m_outer;
    EllipseRows m_inner;
    bool m_hasPen;
    int m_innerRadius;  // below 0: the pen covers all
    int m_row;
};

/// The part of the plane between two directions, counter-clockwise from the first.
class Sector {
public:
    Sector(int startAngle, int endAngle) : m_sweep(Turn(endAngle - startAngle)) {
        const double start = startAngle * std::numbers::pi / 180;
        const double end = endAngle * std::numbers::pi / 180;
        m_startX = std::lround(std::cos(start) * kOne);
        m_startY = std::lround(std::sin(start) * kOne);
        m_endX = std::lround(std::cos(end) * kOne);
        m_endY = std::lround(std::sin(end) * kOne);
    }

    bool IsWhole() const { return m_sweep == 0; }

    /// Whether a pixel lies in the sector, which is not whole; `dy` counts downwards.
    bool Holds(int dx, int dy) const {
        const bool afterStart = m_startX * -dy - m_startY * dx >= 0;
        const bool beforeEnd = m_endX * -dy - m_endY * dx <= 0;
        return m_sweep <= 180 ? afterStart && beforeEnd : afterStart || beforeEnd;
    }

private:
    static constexpr double kOne = 4096;

    static int Turn(int angle) { return (angle % 360 + 360) % 360; }

    int m_sweep;  // degrees
    long m_startX, m_startY, m_endX, m_endY;
};

}  // namespace

void PegScreen::DrawRectangle(const PegRect& rect, const PegBrush& brush) {
    if (rect.IsEmpty()) return;
    const int width = std::clamp<int>(brush.width, 0, std::min(rect.Width(), rect.Height()));
    if (width > 0) {
        Fill(RectOf(rect.left, rect.top, rect.right, rect.top + width - 1), brush.foreground);
        Fill(RectOf(rect.left, rect.bottom - width + 1, rect.right, rect.bottom), brush.foreground);
        const int top = rect.top + width;
        const int bottom = rect.bottom - width;
        Fill(RectOf(rect.left, top, rect.left + width - 1, bottom), brush.foreground);
        Fill(RectOf(rect.right - width + 1, top, rect.right, bottom), brush.foreground);
    }
    FillOrTile(Inset(rect, width), brush);
}

void PegScreen::DrawLine(int x1, int y1, int x2, int y2, const PegBrush& brush) {
    const int width = std::max(1, brush.width);
    const int before = brush.Has(PegBrush::kCentred) ? (width - 1) / 2 : 0;
    const int after = width - 1 - before;
    if (y1 == y2) {
        Fill(ClampedRect(std::min(x1, x2), y1 - before, std::max(x1, x2), y1 + after), brush.foreground);
    } else if (x1 == x2) {
        Fill(ClampedRect(x1 - before, std::min(y1, y2), x1 + after, std::max(y1, y2)), brush.foreground);
    } else {
        DrawSlopedLine(x1, y1, x2, y2, brush);
    }
}

/// Steps along the longer axis; each run of steps on one line of the shorter axis is one rectangle.
void PegScreen::DrawSlopedLine(int x1, int y1, int x2, int y2, const PegBrush& brush) {
    const bool steep = std::abs(y2 - y1) > std::abs(x2 - x1);
    if (steep) {
        std::swap(x1, y1);
        std::swap(x2, y2);
    }
    if (x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    const int width = std::max(1, brush.width);
    const int before = brush.Has(PegBrush::kCentred) ? (width - 1) / 2 : 0;
    const int length = x2 - x1;
    const int rise = std::abs(y2 - y1);
    const int step = y1 < y2 ? 1 : -1;
    const int lowest = std::min(y1, y2) - before;
    const int highest = lowest + rise + width - 1;
    const PegRect bounds = steep ? ClampedRect(lowest, x1, highest, x2) : ClampedRect(x1, lowest, x2, highest);
    ForEachVisible(bounds, [&](const PegRect& area) {
        int error = length / 2;
        for (int x = x1, y = y1 - before, start = x1; x <= x2; ++x) {
            error -= rise;
            if (error >= 0 && x < x2) continue;
            if (steep) {
                FillVisible(y, start, y + width - 1, x, area, brush.foreground);
            } else {
                FillVisible(start, y, x, y + width - 1, area, brush.foreground);
            }
            start = x + 1;
            y += step;
            error += length;
        }
    });
}

void PegScreen::DrawCircle(int centerX, int centerY, int radius, const PegBrush& brush) {
    DrawArc(centerX, centerY, 0, 0, radius, radius, brush);
}

void PegScreen::DrawArc(int centerX, int centerY, int startAngle, int endAngle, int radiusX, int radiusY,
                        const PegBrush& brush) {
    if (radiusX < 0 || radiusY < 0 || radiusX > kLargestRadius || radiusY > kLargestRadius) return;
    const Sector sector(startAngle, endAngle);
    const PegRect bounds = ClampedRect(centerX - radiusX, centerY - radiusY, centerX + radiusX, centerY + radiusY);
    ForEachVisible(bounds, [&](const PegRect& area) {
        // Columns `from` to `to` of the rows `top` to `bottom`; of a sector, of the one row that they are.
        const auto run = [&](int from, int to, int top, int bottom, std::uint16_t color) {
            const auto fill = [&](int first, int last) {
                FillVisible(centerX + first, centerY + top, centerX + last, centerY + bottom, area, color);
            };
            if (sector.IsWhole()) fill(from, to);
            for (int dx = from; dx <= to && !sector.IsWhole(); ++dx) {
                const int start = dx;
                while (dx <= to && sector.Holds(dx, top)) ++dx;
                fill(start, dx - 1);
            }
        };
        RingRows rows(radiusX, radiusY, brush.width);
        RingRows::Row next = rows.Next();
        for (int top = -radiusY, bottom; top <= radiusY; top = bottom + 1) {
            const RingRows::Row row = next;
            // Rows of a whole ring that reach as far as each other are drawn as one.
            for (bottom = top; bottom < radiusY; ++bottom) {
                next = rows.Next();
                if (next != row || !sector.IsWhole()) break;
            }
            if (row.hollow < row.reach) {
                run(-row.reach, row.hollow < 0 ? row.reach : -row.hollow - 1, top, bottom, brush.foreground);
                if (row.hollow >= 0) run(row.hollow + 1, row.reach, top, bottom, brush.foreground);
            }
            if (row.hollow >= 0 && brush.Has(PegBrush::kFill)) {
                run(-row.hollow, row.hollow, top, bottom, brush.background);
            }
        }
    });
}
