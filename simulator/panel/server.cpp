#include "simulator/panel/server.h"

#include <libwebsockets.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <stdexcept>
#include <thread>
#include <unordered_map>

#include "simulator/panel/exchange.h"
#include "simulator/panel/log_files.h"
#include "simulator/panel/meter_control.h"
#include "simulator/panel/meter_trace.h"
#include "simulator/panel/service.h"
#include "simulator/panel/viewer.h"

namespace panel {
namespace {

constexpr lws_usec_t kStateInterval = 500'000;  // the display falls silent without saying so
constexpr std::size_t kMaxConnections = 64;
constexpr std::size_t kMaxViewers = 24;
constexpr int kForbidden = 403;
constexpr int kFirstRefusal = 400;            // of the statuses
constexpr std::chrono::seconds kPatience{5};  // with a request that does not end
constexpr unsigned kHeaderSeconds = 10;       // for the first lines of a request
constexpr std::string_view kLivePath = "/live";
constexpr std::string_view kMeterPath = "/meter";
constexpr std::string_view kFull =
    "HTTP/1.1 503 Service Unavailable\r\nconnection: close\r\ncontent-length: 21\r\n\r\ntoo many connections\n";
constexpr std::string_view kTooSlow =
    "HTTP/1.1 408 Request Timeout\r\nconnection: close\r\ncontent-length: 9\r\n\r\ntoo slow\n";

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
    bool IsFull(lws_sockfd_type socket);
    int Send(Exchange& exchange, const Response& response);
    void HurryUp();
    int OnUpgrade(lws* connection);
    int Answer(Exchange& exchange);
    int AskMeter(Exchange& exchange);
    void PassOnMeterAnswers();
    void LookAround();
    void ShowNews();
    void ScheduleKeyTick();
    void Wake() { lws_cancel_service(m_context); }

    Board& m_board;
    Console m_console;
    Service m_service;
    LogFiles m_logs;
    lws_context* m_context = nullptr;
    int m_port = 0;
    std::unordered_map<lws*, Exchange> m_exchanges;
    std::unordered_map<lws*, Viewer> m_viewers;
    std::unordered_map<lws*, std::chrono::steady_clock::time_point> m_connections;  // since their last request
    Viewer::Scene m_scene;
    Timer m_stateTimer;
    Timer m_keyTimer;
    std::unique_ptr<MeterControl> m_meter;
    std::unique_ptr<MeterTrace> m_trace;
    std::atomic<bool> m_stop = false;  // written by the thread that destroys
    std::thread m_thread;
};

Server::Loop::Loop(Board& board, int port, const std::string& meterControl)
    : m_board(board),
      m_service(board, m_console),
      m_logs(board.Folder(),
             [this](std::string_view program, std::string_view line) { m_console.Show(program, line); }) {
    static const std::array<lws_protocols, 2> kProtocols{{{"live", &Loop::OnEvent, 0, 256, 0, nullptr, 0}, {}}};
    lws_set_log_level(0, nullptr);  // what clients get wrong is their affair
    lws_context_creation_info info{};
    info.iface = "127.0.0.1";
    info.port = port;
    info.protocols = kProtocols.data();
    info.user = this;
    info.timeout_secs = kHeaderSeconds;
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
    m_scene.console = &m_console.Lines();
    if (!meterControl.empty()) {
        m_meter = std::make_unique<MeterControl>(meterControl, [this] { Wake(); });
        m_trace = std::make_unique<MeterTrace>(meterControl, [this] { Wake(); });
        m_scene.trace = &m_trace->Calls();
    }
    m_service.Meter().controlled = m_meter != nullptr;
    m_board.OnChange([this] { Wake(); });
    m_thread = std::thread([this] {
        LookAround();
        while (!m_stop) lws_service(m_context, 0);
    });
}

Server::Loop::~Loop() {
    m_stop = true;
    Wake();
    m_thread.join();
    m_board.OnChange({});
    m_meter.reset();  // before the context, which both wake
    m_trace.reset();
    lws_context_destroy(m_context);
}

int Server::Loop::OnEvent(lws* connection, lws_callback_reasons reason, void* user, void* in, std::size_t size) {
    auto* loop = static_cast<Loop*>(lws_context_user(lws_get_context(connection)));
    if (reason == LWS_CALLBACK_FILTER_NETWORK_CONNECTION)
        return loop->IsFull(static_cast<const lws_filter_network_conn_args*>(user)->accept_fd) ? -1 : 0;
    const auto* text = static_cast<const char*>(in);
    return loop->OnEvent(connection, reason, {text, text != nullptr ? size : 0});
}

int Server::Loop::OnEvent(lws* connection, lws_callback_reasons reason, std::string_view in) {
    const auto exchange = m_exchanges.find(connection);
    const auto viewer = m_viewers.find(connection);
    switch (reason) {
        case LWS_CALLBACK_EVENT_WAIT_CANCELLED: ShowNews(); return 0;
        case LWS_CALLBACK_SERVER_NEW_CLIENT_INSTANTIATED:
            m_connections[connection] = std::chrono::steady_clock::now();
            return 0;
        case LWS_CALLBACK_WSI_DESTROY: m_connections.erase(connection); return 0;
        case LWS_CALLBACK_HTTP: return OnRequest(connection);
        case LWS_CALLBACK_HTTP_BODY: return OnBody(connection, in);
        case LWS_CALLBACK_HTTP_BODY_COMPLETION: return exchange != m_exchanges.end() ? OnBodyEnd(exchange->second) : -1;
        case LWS_CALLBACK_HTTP_WRITEABLE: return exchange != m_exchanges.end() ? exchange->second.Continue() : 0;
        case LWS_CALLBACK_HTTP_CONFIRM_UPGRADE: return OnUpgrade(connection);
        case LWS_CALLBACK_ESTABLISHED:
            m_viewers.try_emplace(connection, connection, m_service);
            lws_callback_on_writable(connection);
            return 0;
        case LWS_CALLBACK_SERVER_WRITEABLE: return viewer != m_viewers.end() ? viewer->second.Continue(m_scene) : 0;
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
    m_connections[connection] = std::chrono::steady_clock::now();
    m_exchanges.erase(connection);
    Exchange& exchange = m_exchanges.emplace(connection, connection).first->second;
    const bool own = m_service.IsOwn(exchange.GetRequest(), m_port);
    if (!own) return Send(exchange, {.status = kForbidden, .body = "not for other pages\n"});
    if (exchange.ContentLength().value_or(0) > kMaxBody)
        return Send(exchange, {.status = 413, .body = "that is too much\n"});
    // The end of a body that is announced is an event of its own. The library tells of it for a POST alone.
    const bool endsLater = exchange.GetRequest().method == "POST" && exchange.ContentLength();
    return endsLater ? 0 : Answer(exchange);
}

/// A connection too many gets an answer before it is one.
bool Server::Loop::IsFull(lws_sockfd_type socket) {
    if (m_connections.size() < kMaxConnections) return false;
    m_console.Refuse("a connection: there are " + std::to_string(kMaxConnections) + " already");
    static_cast<void>(::send(socket, kFull.data(), kFull.size(), MSG_NOSIGNAL | MSG_DONTWAIT));
    return true;
}

int Server::Loop::Send(Exchange& exchange, const Response& response) {
    const Request& request = exchange.GetRequest();
    if (response.status >= kFirstRefusal && response.status != kForbidden)  // of that, IsOwn told already
        m_console.Refuse(request.method + " " + Quoted(request.path) + ": " + std::to_string(response.status) + " " +
                         response.body.substr(0, response.body.find('\n')));
    return exchange.Send(response);
}

/// Requests that do not come to their end are ended. The library would not let them be answered.
void Server::Loop::HurryUp() {
    const auto latest = std::chrono::steady_clock::now() - kPatience;
    for (const auto& [connection, start] : m_connections) {
        const auto exchange = m_exchanges.find(connection);
        const bool unfinished = exchange == m_exchanges.end() || exchange->second.Unfinished();
        if (start > latest || !unfinished || m_viewers.contains(connection)) continue;
        m_console.Refuse("a request: 408 too slow");
        static_cast<void>(
            ::send(lws_get_socket_fd(connection), kTooSlow.data(), kTooSlow.size(), MSG_NOSIGNAL | MSG_DONTWAIT));
        lws_set_timeout(connection, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_ASYNC);
    }
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
    const bool room = m_viewers.size() < kMaxViewers;
    if (own && room && exchange.GetRequest().path == kLivePath) return 0;
    if (own)
        m_console.Refuse(room ? "a WebSocket that is not " + std::string(kLivePath) : "a viewer: too many look on");
    lws_return_http_status(connection, !own ? kForbidden : room ? 404 : 503, nullptr);
    return 1;
}

int Server::Loop::Answer(Exchange& exchange) {
    const Request& request = exchange.GetRequest();
    if (m_meter != nullptr && request.path == kMeterPath) return AskMeter(exchange);
    const int result = Send(exchange, m_service.Answer(request));
    ScheduleKeyTick();
    return result;
}

int Server::Loop::AskMeter(Exchange& exchange) {
    const Request& request = exchange.GetRequest();
    if (request.method != "POST") return Send(exchange, {.status = 405, .body = "only POST\n", .allow = "POST"});
    std::string line = request.body.substr(0, request.body.find_last_not_of("\r\n") + 1);
    if (line.empty() || line.find_first_of("\r\n") != std::string::npos)
        return Send(exchange, {.status = 400, .body = "one line, please\n"});
    const std::optional<std::uint64_t> number = m_meter->Ask(std::move(line));
    if (!number) return Send(exchange, {.status = 503, .body = "too many lines wait for the meter\n"});
    exchange.awaitedLine = *number;
    return 0;
}

void Server::Loop::PassOnMeterAnswers() {
    for (const MeterControl::Answer& answer : m_meter->TakeAnswers()) {
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
    m_scene.frame = m_board.NewestFrame();
    m_scene.state = m_service.State();
    for (const auto& [connection, viewer] : m_viewers) lws_callback_on_writable(connection);
}

/// What nobody announces is looked for twice a second.
void Server::Loop::LookAround() {
    m_logs.Read();
    HurryUp();
    ShowNews();
    lws_sul_schedule(
        m_context, 0, &m_stateTimer.list,
        [](lws_sorted_usec_list_t* list) { reinterpret_cast<Timer*>(list)->loop->LookAround(); }, kStateInterval);
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
