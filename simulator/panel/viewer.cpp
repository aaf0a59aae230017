#include "simulator/panel/viewer.h"

#include <libwebsockets.h>

#include <cstring>
#include <utility>

namespace panel {
namespace {

constexpr std::size_t kMaxMessage = 32;
constexpr std::size_t kMaxReason = 100;  // bytes of text that a closing frame holds

}  // namespace

Viewer::~Viewer() {
    for (const Key key : m_held) m_service.Keys().Release(key);
}

int Viewer::Continue(const Scene& scene) {
    for (auto [subscription, feed] : {std::pair(&m_console, scene.console), std::pair(&m_trace, scene.trace)}) {
        if (!subscription->on || feed == nullptr) continue;
        const Feed::Piece piece = feed->Since(subscription->next);
        if (piece.entries.empty()) continue;
        subscription->next = piece.next;
        lws_callback_on_writable(m_connection);
        return SendPiece(*subscription, piece);
    }
    if (m_sentState != scene.state) {
        m_sentState = scene.state;
        lws_callback_on_writable(m_connection);
        return SendMessage(scene.state.data(), scene.state.size(), false);
    }
    if (m_sentFrame == scene.frame) return 0;
    m_sentFrame = scene.frame;
    return SendMessage(scene.frame->data(), scene.frame->size(), true);
}

int Viewer::Take(std::string_view piece, bool complete) {
    if (m_message.size() + piece.size() > kMaxMessage) return HangUp(LWS_CLOSE_STATUS_MESSAGE_TOO_LARGE, "too long");
    m_message += piece;
    if (!complete) return 0;
    const std::string message = std::exchange(m_message, {});
    if (Understand(message)) return 0;
    return HangUp(LWS_CLOSE_STATUS_POLICY_VIOLATION, "not understood: " + Quoted(message));
}

int Viewer::SendMessage(const void* bytes, std::size_t size, bool binary) {
    std::vector<unsigned char> room(LWS_PRE + size);
    std::memcpy(room.data() + LWS_PRE, bytes, size);
    const lws_write_protocol kind = binary ? LWS_WRITE_BINARY : LWS_WRITE_TEXT;
    return lws_write(m_connection, room.data() + LWS_PRE, size, kind) < static_cast<int>(size) ? -1 : 0;
}

int Viewer::SendPiece(const Subscription& subscription, const Feed::Piece& piece) {
    const std::string message = std::string("{\"") + subscription.name + "\":" + piece.entries +
                                ",\"lost\":" + std::to_string(piece.lost) + "}";
    return SendMessage(message.data(), message.size(), false);
}

bool Viewer::Understand(std::string_view message) {
    const std::size_t space = std::min(message.find(' '), message.size());
    const std::string_view name = message.substr(0, space);
    const std::string_view state = message.substr(space);
    if (const std::optional<Key> key = FindKey(name)) return PressKey(*key, state);
    for (Subscription* subscription : {&m_console, &m_trace}) {
        if (name != subscription->name || (state != " on" && state != " off")) continue;
        subscription->on = state == " on";
        lws_callback_on_writable(m_connection);
        return true;
    }
    return false;
}

bool Viewer::PressKey(Key key, std::string_view state) {
    if (state == " down") {
        m_held.insert(key);
        m_service.Keys().Press(key, std::chrono::steady_clock::now());
        return true;
    }
    if (state != " up") return false;
    if (m_held.erase(key) != 0) m_service.Keys().Release(key);
    return true;
}

int Viewer::HangUp(int reason, std::string_view why) {
    m_service.GetConsole().Refuse("a viewer's message, " + std::string(why));
    std::string text(why.substr(0, kMaxReason));
    lws_close_reason(m_connection, static_cast<lws_close_status>(reason), reinterpret_cast<unsigned char*>(text.data()),
                     text.size());
    return -1;
}

}  // namespace panel
