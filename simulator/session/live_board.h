#pragma once

#include <optional>

#include "simulator/descriptor.h"
#include "simulator/session/session.h"

namespace session {

/// The folder of a board that another process plays: frames and requests go there, keys come from there.
class LiveBoard : public BoardPort {
public:
    /// @throws std::system_error when the folder has no board in it
    explicit LiveBoard(std::filesystem::path folder);

    void TakeFrame(const panel::Frame& frame) override;
    std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument) override;
    void TellShownScreen(std::int32_t id) override;

    /// The next record of the keys device, if there is one.
    struct Key {
        std::int32_t code;
        std::int32_t state;
    };
    std::optional<Key> TakeKey();

private:
    std::filesystem::path m_folder;
    Descriptor m_keys;
};

}  // namespace session
