#include "simulator/panel/exchange.h"

#include <libwebsockets.h>

#include <algorithm>
#include <array>
#include <charconv>

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

/// Room for the headers of a response, to which one after the other is added.
struct Headers {
    explicit Headers(lws* connection) : m_connection(connection) {}

    void Add(const char* name, std::string_view value) {
        m_fits = m_fits && lws_add_http_header_by_name(m_connection, reinterpret_cast<const unsigned char*>(name),
                                                       reinterpret_cast<const unsigned char*>(value.data()),
                                                       static_cast<int>(value.size()), &m_at, End()) == 0;
    }
    bool Begin(const Response& response) {
        m_fits = lws_add_http_common_headers(m_connection, static_cast<unsigned>(response.status),
                                             response.type.c_str(), response.body.size(), &m_at, End()) == 0;
        return m_fits;
    }
    bool Send() {
        return m_fits && lws_finalize_write_http_header(m_connection, m_room.data() + LWS_PRE, &m_at, End()) == 0;
    }

private:
    unsigned char* End() { return m_room.data() + m_room.size(); }

    lws* m_connection;
    std::array<unsigned char, LWS_PRE + 2048> m_room;
    unsigned char* m_at = m_room.data() + LWS_PRE;
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

int Exchange::Begin(Response response) {
    m_answered = true;
    m_response = std::move(response);
    Headers headers(m_connection);
    headers.Begin(m_response);
    headers.Add("cache-control:", "no-store");
    headers.Add("content-security-policy:", kOwnContentOnly);
    headers.Add("x-content-type-options:", "nosniff");
    if (!m_response.allow.empty()) headers.Add("allow:", m_response.allow);
    if (!headers.Send()) return -1;
    m_toSend = true;
    lws_callback_on_writable(m_connection);
    return 0;
}

int Exchange::Continue() {
    if (!m_toSend) return 0;
    m_toSend = false;
    // The library keeps what the connection does not take, and sends it before anything else.
    std::vector<unsigned char> room(LWS_PRE + m_response.body.size());
    std::ranges::copy(m_response.body, room.begin() + LWS_PRE);
    const int size = static_cast<int>(m_response.body.size());
    if (lws_write(m_connection, room.data() + LWS_PRE, m_response.body.size(), LWS_WRITE_HTTP_FINAL) < size) return -1;
    // Where a body of unknown length may follow, the next request cannot be told from it.
    if (m_request.method == "POST" && !m_contentLength) return -1;
    return lws_http_transaction_completed(m_connection) != 0 ? -1 : 0;
}

}  // namespace panel
