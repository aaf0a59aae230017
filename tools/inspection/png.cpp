#include "tools/inspection/png.h"

#include <png.h>

#include "tools/formats/file_bytes.h"
#include "tools/formats/source_error.h"

void WritePng(const std::filesystem::path& path, const Image& image) {
    png_image header{};
    header.version = PNG_IMAGE_VERSION;
    header.width = static_cast<png_uint_32>(image.width);
    header.height = static_cast<png_uint_32>(image.height);
    header.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 0;
    Bytes bytes(PNG_IMAGE_PNG_SIZE_MAX(header));
    size = bytes.size();
    if (png_image_write_to_memory(&header, bytes.data(), &size, 0, image.pixels.data(), 0, nullptr) == 0) {
        throw SourceError(path.string(), header.message);
    }
    bytes.resize(size);
    WriteFile(path, bytes);
}
