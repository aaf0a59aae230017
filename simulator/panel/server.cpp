#include "simulator/panel/server.h"

#include <libwebsockets.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <stdexcept>
#include <thread>
#include <unordered_map>

#include "simulator/panel/exchange.h"
#include "simulator/panel/meter_control.h"
#include "simulator/panel/service.h"
#include "simulator/panel/viewer.h"

namespace panel {
namespace {

constexpr lws_usec_t kStateInterval = 500'000;  // the display falls silent without saying so
constexpr std::string_view kLivePath = "/live";
constexpr std::string_view kMeterPath = "/meter";

}  // namespace

/// The event loop: everything here happens on its thread, but for the wake-ups.
class Server::Loop {
public:
    Loop(Board& board, int port, const std::string& meterControl);
    ~Loop();

    int Port() const { return m_port; }

private:
    struct Timer {
        lws_sorted_usec_list_t list{};  // first, so that it leads to the timer
        Loop* loop = nullptr;
    };

    static int OnEvent(lws* connection, lws_callback_reasons reason, void* user, void* in, std::size_t size);
    int OnEvent(lws* connection, lws_callback_reasons reason, std::string_view in);
    int OnRequest(lws* connection);
    int OnBody(lws* connection, std::string_view piece);
    int OnBodyEnd(Exchange& exchange);
    static int Refuse(Exchange& exchange, const Response& response);
    int OnUpgrade(lws* connection);
    int Answer(Exchange& exchange);
    int AskMeter(Exchange& exchange);
    void PassOnMeterAnswers();
    void ShowNews();
    void ScheduleKeyTick();
    void Wake() { lws_cancel_service(m_context); }

    Board& m_board;
    Service m_service;
    lws_context* m_context = nullptr;
    int m_port = 0;
    std::unordered_map<lws*, Exchange> m_exchanges;
    std::unordered_map<lws*, Viewer> m_viewers;
    std::string m_state;
    std::shared_ptr<const Frame> m_frame;
    Timer m_stateTimer;
    Timer m_keyTimer;
    std::unique_ptr<MeterControl> m_meter;
    std::atomic<bool> m_stop = false;  // written by the thread that destroys
    std::thread m_thread;
};

Server::Loop::Loop(Board& board, int port, const std::string& meterControl) : m_board(board), m_service(board) {
    static const std::array<lws_protocols, 2> kProtocols{{{"live", &Loop::OnEvent, 0, 256, 0, nullptr, 0}, {}}};
    lws_set_log_level(0, nullptr);  // what clients get wrong is their affair
    lws_context_creation_info info{};
    info.iface = "127.0.0.1";
    info.port = port;
    info.protocols = kProtocols.data();
    info.user = this;
    info.gid = -1;
    info.uid = -1;
    info.options =
        LWS_SERVER_OPTION_DISABLE_IPV6 | LWS_SERVER_OPTION_FAIL_UPON_UNABLE_TO_BIND | LWS_SERVER_OPTION_EXPLICIT_VHOSTS;
    m_context = lws_create_context(&info);
    lws_vhost* host = m_context != nullptr ? lws_create_vhost(m_context, &info) : nullptr;
    if (host == nullptr) {
        if (m_context != nullptr) lws_context_destroy(m_context);
        throw std::runtime_error("cannot serve port " + std::to_string(port) + " of 127.0.0.1");
    }
    m_port = lws_get_vhost_listen_port(host);
    m_stateTimer.loop = m_keyTimer.loop = this;
    if (!meterControl.empty()) m_meter = std::make_unique<MeterControl>(meterControl, [this] { Wake(); });
    m_service.Meter().controlled = m_meter != nullptr;
    m_board.OnChange([this] { Wake(); });
    m_thread = std::thread([this] {
        ShowNews();
        while (!m_stop) lws_service(m_context, 0);
    });
}

Server::Loop::~Loop() {
    m_stop = true;
    Wake();
    m_thread.join();
    m_board.OnChange({});
    m_meter.reset();  // before the context, which it wakes
    lws_context_destroy(m_context);
}

int Server::Loop::OnEvent(lws* connection, lws_callback_reasons reason, void* /*user*/, void* in, std::size_t size) {
    auto* loop = static_cast<Loop*>(lws_context_user(lws_get_context(connection)));
    const auto* text = static_cast<const char*>(in);
    return loop->OnEvent(connection, reason, {text, text != nullptr ? size : 0});
}

int Server::Loop::OnEvent(lws* connection, lws_callback_reasons reason, std::string_view in) {
    const auto exchange = m_exchanges.find(connection);
    const auto viewer = m_viewers.find(connection);
    switch (reason) {
        case LWS_CALLBACK_EVENT_WAIT_CANCELLED: ShowNews(); return 0;
        case LWS_CALLBACK_HTTP: return OnRequest(connection);
        case LWS_CALLBACK_HTTP_BODY: return OnBody(connection, in);
        case LWS_CALLBACK_HTTP_BODY_COMPLETION: return exchange != m_exchanges.end() ? OnBodyEnd(exchange->second) : -1;
        case LWS_CALLBACK_HTTP_WRITEABLE: return exchange != m_exchanges.end() ? exchange->second.Continue() : 0;
        case LWS_CALLBACK_HTTP_CONFIRM_UPGRADE: return OnUpgrade(connection);
        case LWS_CALLBACK_ESTABLISHED:
            m_viewers.try_emplace(connection, connection, m_service);
            lws_callback_on_writable(connection);
            return 0;
        case LWS_CALLBACK_SERVER_WRITEABLE:
            return viewer != m_viewers.end() ? viewer->second.Continue(m_state, m_frame) : 0;
        case LWS_CALLBACK_RECEIVE: {
            if (viewer == m_viewers.end()) return -1;
            const bool complete =
                lws_is_final_fragment(connection) != 0 && lws_remaining_packet_payload(connection) == 0;
            const int result = viewer->second.Take(in, complete);
            ScheduleKeyTick();
            return result;
        }
        case LWS_CALLBACK_CLOSED: m_viewers.erase(connection); return 0;
        case LWS_CALLBACK_CLOSED_HTTP: m_exchanges.erase(connection); return 0;
        default: return 0;
    }
}

int Server::Loop::OnRequest(lws* connection) {
    m_exchanges.erase(connection);
    Exchange& exchange = m_exchanges.emplace(connection, connection).first->second;
    const bool own = m_service.IsOwn(exchange.GetRequest(), m_port);
    if (!own) return Refuse(exchange, {.status = 403, .body = "not for other pages\n"});
    if (exchange.ContentLength().value_or(0) > kMaxBody)
        return Refuse(exchange, {.status = 413, .body = "that is too much\n"});
    // A body that is announced ends with an event of its own, even if it is empty.
    return exchange.ContentLength() ? 0 : Answer(exchange);
}

/// Answers before the body was read, and ends the connection.
int Server::Loop::Refuse(Exchange& exchange, const Response& response) {
    [[maybe_unused]] const int ended = exchange.Send(response);
    return -1;
}

int Server::Loop::OnBody(lws* connection, std::string_view piece) {
    const auto found = m_exchanges.find(connection);
    if (found == m_exchanges.end() || found->second.Answered()) return 0;
    return found->second.TakeBody(piece.data(), piece.size()) ? 0 : -1;
}

/// The library also comes here when the next request arrives before the answer to this one, and would for ever: one
/// request at a time.
int Server::Loop::OnBodyEnd(Exchange& exchange) {
    return exchange.Answered() || exchange.awaitedLine != 0 ? -1 : Answer(exchange);
}

/// @return 0 to go on to the WebSocket, 1 after a refusal
int Server::Loop::OnUpgrade(lws* connection) {
    const Exchange exchange(connection);
    const bool own = m_service.IsOwn(exchange.GetRequest(), m_port);
    if (own && exchange.GetRequest().path == kLivePath) return 0;
    lws_return_http_status(connection, own ? 404 : 403, nullptr);
    return 1;
}

int Server::Loop::Answer(Exchange& exchange) {
    const Request& request = exchange.GetRequest();
    if (m_meter != nullptr && request.path == kMeterPath) return AskMeter(exchange);
    const int result = exchange.Send(m_service.Answer(request));
    ScheduleKeyTick();
    return result;
}

int Server::Loop::AskMeter(Exchange& exchange) {
    const Request& request = exchange.GetRequest();
    if (request.method != "POST") return exchange.Send({.status = 405, .body = "only POST\n", .allow = "POST"});
    std::string line = request.body.substr(0, request.body.find_last_not_of("\r\n") + 1);
    if (line.empty() || line.find_first_of("\r\n") != std::string::npos)
        return exchange.Send({.status = 400, .body = "one line, please\n"});
    exchange.awaitedLine = m_meter->Ask(std::move(line));
    return 0;
}

void Server::Loop::PassOnMeterAnswers() {
    for (MeterControl::Answer& answer : m_meter->TakeAnswers()) {
        const auto found = std::ranges::find_if(
            m_exchanges, [&answer](const auto& entry) { return entry.second.awaitedLine == answer.number; });
        if (found == m_exchanges.end()) continue;
        Response response{.status = 502, .body = "the meter does not answer\n"};
        if (answer.line) response = {.body = *answer.line + "\n"};
        found->second.SendLater(std::move(response));
    }
    m_service.Meter().state = m_meter->State();
}

void Server::Loop::ShowNews() {
    if (m_meter != nullptr) PassOnMeterAnswers();
    m_frame = m_board.NewestFrame();
    m_state = m_service.State();
    for (const auto& [connection, viewer] : m_viewers) lws_callback_on_writable(connection);
    lws_sul_schedule(
        m_context, 0, &m_stateTimer.list,
        [](lws_sorted_usec_list_t* list) { reinterpret_cast<Timer*>(list)->loop->ShowNews(); }, kStateInterval);
}

void Server::Loop::ScheduleKeyTick() {
    const auto next = m_service.Keys().NextTick();
    if (!next) return;
    const auto wait = std::chrono::ceil<std::chrono::microseconds>(*next - std::chrono::steady_clock::now());
    lws_sul_schedule(
        m_context, 0, &m_keyTimer.list,
        [](lws_sorted_usec_list_t* list) {
            Loop& loop = *reinterpret_cast<Timer*>(list)->loop;
            loop.m_service.Keys().Tick(std::chrono::steady_clock::now());
            loop.ScheduleKeyTick();
        },
        std::max<lws_usec_t>(wait.count(), 1));
}

Server::Server(Board& board, int port, const std::string& meterControl)
    : m_loop(std::make_unique<Loop>(board, port, meterControl)) {}

Server::~Server() = default;

int Server::Port() const { return m_loop->Port(); }

}  // namespace panel
