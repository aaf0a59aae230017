#include "simulator/panel/exchange.h"

#include <libwebsockets.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace panel {
namespace {

struct MethodRow {
    lws_token_indexes token;
    const char* name;
};

constexpr auto kMethods = std::to_array<MethodRow>({
    {WSI_TOKEN_GET_URI, "GET"},
    {WSI_TOKEN_POST_URI, "POST"},
    {WSI_TOKEN_HEAD_URI, "HEAD"},
    {WSI_TOKEN_PUT_URI, "PUT"},
    {WSI_TOKEN_DELETE_URI, "DELETE"},
    {WSI_TOKEN_PATCH_URI, "PATCH"},
    {WSI_TOKEN_OPTIONS_URI, "OPTIONS"},
});

constexpr std::string_view kOwnContentOnly =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; connect-src 'self'; "
    "frame-ancestors 'none'; base-uri 'none'; form-action 'none'";

std::optional<std::string> Header(lws* connection, lws_token_indexes token) {
    const int length = lws_hdr_total_length(connection, token);
    if (length <= 0) return std::nullopt;
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    const int copied = lws_hdr_copy(connection, text.data(), length + 1, token);
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
    return text;
}

std::map<std::string, std::string> Query(lws* connection) {
    std::map<std::string, std::string> query;
    std::array<char, 128> fragment;
    for (int i = 0; lws_hdr_copy_fragment(connection, fragment.data(), fragment.size(), WSI_TOKEN_HTTP_URI_ARGS, i) > 0;
         ++i) {
        const std::string_view text(fragment.data());
        const std::size_t equals = std::min(text.find('='), text.size());
        query.emplace(text.substr(0, equals), text.substr(std::min(equals + 1, text.size())));
    }
    return query;
}

/// A response as it goes over the connection, headers and body in one, since a client that has seen the end of an
/// answer may send its next request before a second write.
class Wire {
public:
    Wire(lws* connection, const Response& response)
        : m_connection(connection), m_room(LWS_PRE + kHeaderRoom + response.body.size()), m_at(Start()) {
        m_fits = lws_add_http_common_headers(m_connection, static_cast<unsigned>(response.status),
                                             response.type.c_str(), response.body.size(), &m_at, End()) == 0;
    }

    void AddHeader(const char* name, std::string_view value) {
        m_fits = m_fits && lws_add_http_header_by_name(m_connection, reinterpret_cast<const unsigned char*>(name),
                                                       reinterpret_cast<const unsigned char*>(value.data()),
                                                       static_cast<int>(value.size()), &m_at, End()) == 0;
    }

    /// The library keeps what the connection does not take. @return whether that is well
    bool Send(std::string_view body) {
        if (!m_fits || lws_finalize_http_header(m_connection, &m_at, End()) != 0) return false;
        m_at = std::ranges::copy(body, m_at).out;
        const auto size = static_cast<std::size_t>(m_at - Start());
        return lws_write(m_connection, Start(), size, LWS_WRITE_HTTP_FINAL) >= static_cast<int>(size);
    }

private:
    static constexpr std::size_t kHeaderRoom = 2048;

    unsigned char* Start() { return m_room.data() + LWS_PRE; }
    unsigned char* End() { return Start() + kHeaderRoom; }

    lws* m_connection;
    std::vector<unsigned char> m_room;
    unsigned char* m_at;
    bool m_fits = true;
};

}  // namespace

Exchange::Exchange(lws* connection) : m_connection(connection) {
    for (const MethodRow& row : kMethods) {
        std::optional<std::string> path = Header(connection, row.token);
        if (!path) continue;
        m_request.method = row.name;
        m_request.path = std::move(*path);
        break;
    }
    m_request.query = Query(connection);
    m_request.host = Header(connection, WSI_TOKEN_HOST);
    m_request.origin = Header(connection, WSI_TOKEN_ORIGIN);
    if (const auto length = Header(connection, WSI_TOKEN_HTTP_CONTENT_LENGTH)) {
        std::uint64_t value = kMaxBody + 1;  // what is no number is too much
        std::from_chars(length->data(), length->data() + length->size(), value);
        m_contentLength = value;
    }
}

bool Exchange::TakeBody(const void* bytes, std::size_t size) {
    if (m_request.body.size() + size > kMaxBody) return false;
    m_request.body.append(static_cast<const char*>(bytes), size);
    return true;
}

int Exchange::Send(const Response& response) {
    Wire wire(m_connection, response);
    wire.AddHeader("cache-control:", "no-store");
    wire.AddHeader("content-security-policy:", kOwnContentOnly);
    wire.AddHeader("x-content-type-options:", "nosniff");
    if (!response.allow.empty()) wire.AddHeader("allow:", response.allow);
    wire.AddHeader("connection:", "close");
    m_answered = true;
    static_cast<void>(wire.Send(response.body));
    // What comes behind a request is not looked at: the library would read the next one from memory that it has freed.
    return -1;
}

void Exchange::SendLater(Response response) {
    m_response = std::move(response);
    lws_callback_on_writable(m_connection);
}

int Exchange::Continue() {
    if (!m_response) return 0;
    const Response response = *std::exchange(m_response, std::nullopt);
    return Send(response);
}

}  // namespace panel
