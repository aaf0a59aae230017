#include "simulator/panel/service.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "simulator/panel/page_files.h"
#include "simulator/panel/registers.h"

namespace panel {
namespace {

struct TypeRow {
    std::string_view suffix;
    std::string_view type;
};

// clang-format off
constexpr auto kTypes = std::to_array<TypeRow>({
    {.suffix = ".html", .type = "text/html; charset=utf-8"},
    {.suffix = ".css",  .type = "text/css; charset=utf-8"},
    {.suffix = ".js",   .type = "text/javascript; charset=utf-8"},
    {.suffix = ".json", .type = "application/json"},
    {.suffix = ".svg",  .type = "image/svg+xml"},
});
// clang-format on

constexpr std::string_view kFrontPage = "index.html";
constexpr std::string_view kKeysPath = "/keys/";

Response Refusal(int status, std::string why) { return {.status = status, .body = std::move(why) + "\n"}; }

Response WrongMethod(std::string allowed) {
    Response response = Refusal(405, "only " + allowed);
    response.allow = std::move(allowed);
    return response;
}

const PageFile* FindPageFile(std::string_view path) {
    const std::string_view name = path == "/" ? kFrontPage : path.substr(1);
    const auto file = std::ranges::find(PageFiles(), name, &PageFile::name);
    return file != PageFiles().end() ? &*file : nullptr;
}

Response PageResponse(const PageFile& file) {
    const auto row =
        std::ranges::find_if(kTypes, [&file](const TypeRow& type) { return file.name.ends_with(type.suffix); });
    return {.type = std::string(row != kTypes.end() ? row->type : "application/octet-stream"),
            .body = std::string(file.bytes.begin(), file.bytes.end())};
}

bool IsThisServer(std::string_view authority, int port) {
    for (const std::string name : {"127.0.0.1", "localhost"}) {
        if (authority == name + ":" + std::to_string(port)) return true;
        if (authority == name && port == 80) return true;
    }
    return false;
}

}  // namespace

Service::Service(Board& board, Console& console)
    : m_board(board), m_console(console), m_keys([this](KeyRecord record) { Report(record); }) {}

void Service::Report(KeyRecord record) { m_keyLost = !m_board.Send(record) || m_keyLost; }

bool Service::IsOwn(const Request& request, int port) {
    constexpr std::string_view kScheme = "http://";
    const bool ownHost = request.host && IsThisServer(*request.host, port);
    const bool ownOrigin = !request.origin || (request.origin->starts_with(kScheme) &&
                                               IsThisServer(request.origin->substr(kScheme.size()), port));
    if (ownHost && ownOrigin) return true;
    m_console.Refuse(request.method + " " + Quoted(request.path) + " with host " + Quoted(request.host.value_or("")) +
                     " and origin " + Quoted(request.origin.value_or("")));
    return false;
}

Response Service::Answer(const Request& request) {
    if (request.path.starts_with(kKeysPath)) return PressKey(request);
    const PageFile* file = FindPageFile(request.path);
    const auto known = std::to_array<std::string_view>({"/frame.png", "/state", "/registers.json"});
    if (file == nullptr && std::ranges::find(known, request.path) == known.end())
        return Refusal(404, "there is no " + request.path);
    if (request.method != "GET") return WrongMethod("GET");
    if (file != nullptr) return PageResponse(*file);
    if (request.path == "/registers.json") return {.type = "application/json", .body = RegistersJson()};
    if (request.path == "/state") return {.type = "application/json", .body = State()};
    return FramePng();
}

std::string Service::State() {
    const BoardState board = m_board.State();
    nlohmann::json state = {
        {"frames", board.frames},
        {"backlight", {{"level", board.backlight.level}, {"on", board.backlight.on}}},
        {"lines", {board.lineHigh[0] ? 1 : 0, board.lineHigh[1] ? 1 : 0, board.lineHigh[2] ? 1 : 0}},
        {"alarmLamp", board.AlarmLamp()},
        {"display", board.displayUp},
        {"screen", nullptr},
        {"meter", nullptr},
        {"meterState", nullptr},
    };
    if (board.displayUp && board.screen != kNoScreen) state["screen"] = board.screen;
    if (m_meter.controlled) {
        state["meter"] = !m_meter.state.empty();
        if (!m_meter.state.empty()) state["meterState"] = nlohmann::json::parse(m_meter.state);
    }
    return state.dump();
}

Response Service::FramePng() {
    std::shared_ptr<const Frame> newest = m_board.NewestFrame();
    if (newest != m_encoded) {
        const std::vector<std::uint8_t> png = EncodePng(*newest);
        m_png.assign(png.begin(), png.end());
        m_encoded = std::move(newest);
    }
    return {.type = "image/png", .body = m_png};
}

Response Service::PressKey(const Request& request) {
    const std::optional<Key> key = FindKey(std::string_view(request.path).substr(kKeysPath.size()));
    if (!key) return Refusal(404, "there is no such key");
    if (request.method != "POST") return WrongMethod("POST");
    const auto argument = request.query.find("state");
    const std::string state = argument != request.query.end() ? argument->second : "";
    if (argument != request.query.end() && state != "down" && state != "up")
        return Refusal(400, "a key goes down or up");
    m_keyLost = false;
    if (state != "up") m_keys.Press(*key, std::chrono::steady_clock::now());
    if (state != "down") m_keys.Release(*key);
    return m_keyLost ? Refusal(503, "the display reads no keys") : Response{.status = 204, .body = ""};
}

}  // namespace panel
