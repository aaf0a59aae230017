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

/// The largest whole number whose square is at most `square`.
std::int64_t Root(std::int64_t square) {
    auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(square)));
    while (root * root > square) --root;
    while ((root + 1) * (root + 1) <= square) ++root;
    return root;
}

/// An ellipse whose edge runs half a pixel outside its radii, so that a radius of 0 is one pixel.
struct Ellipse {
    int radiusX;
    int radiusY;

    /// How far row `dy` reaches to either side of the centre; -1 where the ellipse does not reach.
    int HalfWidth(int dy) const {
        if (radiusX < 0 || radiusY < 0 || std::abs(dy) > radiusY) return -1;
        const std::int64_t a = 2 * radiusX + 1;
        const std::int64_t b = 2 * radiusY + 1;
        const std::int64_t rest = b * b - 4LL * dy * dy;
        return static_cast<int>(Root(a * a * rest / (b * b)) / 2);
    }
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

    /// Whether a pixel lies in the sector; `dy` counts downwards.
    bool Holds(int dx, int dy) const {
        if (IsWhole()) return true;
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
    int error = length / 2;
    for (int x = x1, y = y1, start = x1; x <= x2; ++x) {
        error -= rise;
        if (error >= 0 && x < x2) continue;
        const int low = y - before;
        const int high = low + width - 1;
        Fill(steep ? ClampedRect(low, start, high, x) : ClampedRect(start, low, x, high), brush.foreground);
        start = x + 1;
        y += step;
        error += length;
    }
}

void PegScreen::DrawCircle(int centerX, int centerY, int radius, const PegBrush& brush) {
    DrawArc(centerX, centerY, 0, 0, radius, radius, brush);
}

void PegScreen::DrawArc(int centerX, int centerY, int startAngle, int endAngle, int radiusX, int radiusY,
                        const PegBrush& brush) {
    if (radiusX < 0 || radiusY < 0 || radiusX > kLargestRadius || radiusY > kLargestRadius) return;
    const Sector sector(startAngle, endAngle);
    const Ellipse outer{radiusX, radiusY};
    const Ellipse inner{radiusX - brush.width, radiusY - brush.width};
    const auto run = [&](int dy, int from, int to, std::uint16_t color) {
        for (int dx = from; dx <= to; ++dx) {
            const int start = dx;
            while (dx <= to && (sector.IsWhole() || sector.Holds(dx, dy))) dx = sector.IsWhole() ? to + 1 : dx + 1;
            if (dx > start) {
                Fill(ClampedRect(centerX + start, centerY + dy, centerX + dx - 1, centerY + dy), color);
            }
        }
    };
    for (int dy = -radiusY; dy <= radiusY; ++dy) {
        const int reach = outer.HalfWidth(dy);
        const int hollow = brush.width > 0 ? inner.HalfWidth(dy) : reach;
        if (hollow < reach) {
            run(dy, -reach, hollow < 0 ? reach : -hollow - 1, brush.foreground);
            if (hollow >= 0) run(dy, hollow + 1, reach, brush.foreground);
        }
        if (hollow >= 0 && brush.Has(PegBrush::kFill)) run(dy, -hollow, hollow, brush.background);
    }
}
