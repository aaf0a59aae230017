#include "simulator/session/picture.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>
#include <vector>

#include "simulator/descriptor.h"

namespace session {
void WritePicture(const panel::Frame& frame, const std::filesystem::path& path, int output) {
    const std::vector<std::uint8_t> png = panel::EncodePng(frame);
    Descriptor file;
    if (path != "-") {
        file = Opened(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644), "write " + path.string());
        output = file.Get();
    }
    for (std::size_t written = 0; written < png.size();) {
        const ssize_t count = ::write(output, png.data() + written, png.size() - written);
        if (count <= 0) throw std::runtime_error("cannot write the whole picture to " + path.string());
        written += static_cast<std::size_t>(count);
    }
}

}  // namespace session
