#include "tools/drawing/svg.h"

#include <librsvg/rsvg.h>

#include <cmath>
#include <memory>

#include "tools/formats/file_bytes.h"
#include "tools/formats/source_error.h"

namespace {

constexpr double kLargestSide = 1024;

struct Unref {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

[[noreturn]] void Fail(const std::filesystem::path& path, GError* error) {
    const std::string what = error != nullptr ? error->message : "cannot be drawn";
    if (error != nullptr) g_error_free(error);
    throw SourceError(path.string(), what);
}

std::unique_ptr<RsvgHandle, Unref> Open(const std::filesystem::path& path, const std::string& style) {
    const Bytes bytes = ReadFile(path);
    GError* error = nullptr;
    std::unique_ptr<RsvgHandle, Unref> handle{rsvg_handle_new_from_data(bytes.data(), bytes.size(), &error)};
    if (!handle) Fail(path, error);
    rsvg_handle_set_dpi(handle.get(), 96);
    const auto* css = reinterpret_cast<const guint8*>(style.data());
    if (rsvg_handle_set_stylesheet(handle.get(), css, style.size(), &error) == 0) Fail(path, error);
    return handle;
}

// Cairo keeps colours multiplied by their coverage.
Image::Pixel Unmultiplied(std::uint32_t argb) {
    const std::uint32_t alpha = argb >> 24;
    if (alpha == 0) return {};
    const auto part = [&](int shift) {
        return static_cast<std::uint8_t>(((argb >> shift & 0xFF) * 255 + alpha / 2) / alpha);
    };
    return {part(16), part(8), part(0), static_cast<std::uint8_t>(alpha)};
}

}  // namespace

Image DrawSvg(const std::filesystem::path& path, const std::string& style) {
    const auto handle = Open(path, style);
    double width = 0;
    double height = 0;
    const bool sized = rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height) != 0;
    const bool whole = width == std::floor(width) && height == std::floor(height);
    if (!sized || !whole || width < 1 || height < 1 || width > kLargestSide || height > kLargestSide) {
        throw SourceError(path.string(), "its width and height are no whole pixels");
    }
    Image image(static_cast<int>(width), static_cast<int>(height));
    const std::unique_ptr<cairo_surface_t, Unref> surface{
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, image.width, image.height)};
    const std::unique_ptr<cairo_t, Unref> context{cairo_create(surface.get())};
    const RsvgRectangle place{0, 0, width, height};
    GError* error = nullptr;
    if (rsvg_handle_render_document(handle.get(), context.get(), &place, &error) == 0) Fail(path, error);

    cairo_surface_flush(surface.get());
    const unsigned char* rows = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < image.height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(rows + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < image.width; ++x) image.At(x, y) = Unmultiplied(row[x]);
    }
    return image;
}
