#include "simulator/panel/viewer.h"

#include <libwebsockets.h>

#include <cstring>

namespace panel {
namespace {

constexpr std::size_t kMaxMessage = 32;

}  // namespace

Viewer::~Viewer() {
    for (const Key key : m_held) m_service.Keys().Release(key);
}

int Viewer::Continue(const std::string& state, const std::shared_ptr<const Frame>& frame) {
    if (m_sentState != state) {
        m_sentState = state;
        lws_callback_on_writable(m_connection);
        return SendMessage(state.data(), state.size(), false);
    }
    if (m_sentFrame == frame) return 0;
    m_sentFrame = frame;
    return SendMessage(frame->data(), frame->size(), true);
}

int Viewer::Take(std::string_view piece, bool complete) {
    if (m_message.size() + piece.size() > kMaxMessage) return -1;
    m_message += piece;
    if (!complete) return 0;
    const bool understood = PressKey(m_message);
    m_message.clear();
    return understood ? 0 : -1;
}

int Viewer::SendMessage(const void* bytes, std::size_t size, bool binary) {
    std::vector<unsigned char> room(LWS_PRE + size);
    std::memcpy(room.data() + LWS_PRE, bytes, size);
    const lws_write_protocol kind = binary ? LWS_WRITE_BINARY : LWS_WRITE_TEXT;
    return lws_write(m_connection, room.data() + LWS_PRE, size, kind) < static_cast<int>(size) ? -1 : 0;
}

bool Viewer::PressKey(std::string_view message) {
    const std::size_t space = std::min(message.find(' '), message.size());
    const std::optional<Key> key = FindKey(message.substr(0, space));
    const std::string_view state = message.substr(space);
    if (!key) return false;
    if (state == " down") {
        m_held.insert(*key);
        m_service.Keys().Press(*key, std::chrono::steady_clock::now());
        return true;
    }
    if (state != " up") return false;
    if (m_held.erase(*key) != 0) m_service.Keys().Release(*key);
    return true;
}

}  // namespace panel
