#include "simulator/session/recording.h"

#include <zlib.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace session {
namespace {

using meter::Json;
using Bytes = std::vector<std::byte>;

constexpr int kVersion = 1;

std::string Hex(std::span<const std::byte> bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const std::byte one : bytes) {
        hex += kDigits[std::to_integer<std::size_t>(one) >> 4];
        hex += kDigits[std::to_integer<std::size_t>(one) & 15];
    }
    return hex;
}

Bytes FromHex(const std::string& hex) {
    Bytes bytes;
    for (std::size_t at = 0; at < hex.size(); at += 2) {
        unsigned value = 0;
        const char* const end = hex.data() + std::min(at + 2, hex.size());
        if (std::from_chars(hex.data() + at, end, value, 16).ptr != end || end != hex.data() + at + 2)
            throw std::runtime_error("\"" + hex.substr(at, 2) + "\" is no byte");
        bytes.push_back(static_cast<std::byte>(value));
    }
    return bytes;
}

/// What changed from one frame to the next, packed: most of it is zeros.
Bytes PackChange(const panel::Frame& from, const panel::Frame& to) {
    panel::Frame change;
    for (std::size_t i = 0; i < change.size(); ++i) change[i] = from[i] ^ to[i];
    uLongf size = compressBound(change.size());
    Bytes packed(size);
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size, change.data(), change.size(), Z_BEST_SPEED);
    packed.resize(size);
    return packed;
}

std::shared_ptr<const panel::Frame> UnpackChange(const panel::Frame& from, const Bytes& packed) {
    const auto changed = std::make_shared<panel::Frame>();
    panel::Frame& frame = *changed;
    uLongf size = frame.size();
    if (uncompress(frame.data(), &size, reinterpret_cast<const Bytef*>(packed.data()), packed.size()) != Z_OK ||
        size != frame.size())
        throw std::runtime_error("the pixels are no frame");
    for (std::size_t i = 0; i < frame.size(); ++i) frame[i] ^= from[i];
    return changed;
}

/// A whole number that has room in its field; any other is refused rather than cut.
template <typename Number>
Number WholeIn(const Json& value) {
    const bool isWhole =
        value.is_number_integer() && (!value.is_number_unsigned() || value.get<std::uint64_t>() <= INT64_MAX);
    if (!isWhole || !std::in_range<Number>(value.get<std::int64_t>()))
        throw std::runtime_error(value.dump() + " is no number for this place");
    return static_cast<Number>(value.get<std::int64_t>());
}

/// @param last  the frame before, and then that of the line
Event EventOf(const Json& line, std::shared_ptr<const panel::Frame>& last) {
    const auto time = WholeIn<Instant>(line.at("t"));
    if (line.contains("key"))
        return {time, KeyEvent{WholeIn<std::int32_t>(line["key"].at(0)), WholeIn<std::int32_t>(line["key"].at(1))}};
    if (line.contains("command"))
        return {time,
                CommandEvent{line["command"], FromHex(line.at("payload")), WholeIn<std::uint32_t>(line.at("size"))}};
    if (line.contains("listens")) return {time, ListenEvent{line["listens"]}};
    if (line.contains("call"))
        return {time, CallEvent{{line["call"], FromHex(line.at("payload")), WholeIn<std::uint32_t>(line.at("size"))},
                                {line.value("reset", false), FromHex(line.at("reply")),
                                 std::chrono::milliseconds(WholeIn<std::int32_t>(line.value("held", Json(0)))),
                                 std::chrono::milliseconds(WholeIn<std::int32_t>(line.value("pace", Json(0))))}}};
    if (line.contains("frame")) {
        last = UnpackChange(*last, FromHex(line.at("change")));
        return {time, FrameEvent{last}};
    }
    if (line.contains("end")) return {time, EndEvent{}};
    throw std::runtime_error("it names no event");
}

void Digest(const std::filesystem::path& path, std::uint64_t& hash) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, 65536> buffer;
    while (file.read(buffer.data(), buffer.size()), file.gcount() > 0)
        for (const char one : std::span(buffer).first(static_cast<std::size_t>(file.gcount())))
            hash = (hash ^ static_cast<unsigned char>(one)) * 0x100000001B3U;
}

}  // namespace

Recording Recording::Read(const std::filesystem::path& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return Read(file, path.string());
}

Recording Recording::Read(std::istream& text, const std::string& name) {
    Recording recording;
    static const auto kDark = std::make_shared<const panel::Frame>();
    std::shared_ptr<const panel::Frame> last = kDark;
    std::string lineText;
    for (int number = 1; std::getline(text, lineText); ++number) {
        try {
            const Json line = Json::parse(lineText);
            if (number > 1) {
                recording.events.push_back(EventOf(line, last));
                continue;
            }
            if (line.at("recording") != kVersion) throw std::runtime_error("it is of another version");
            recording.build = line.at("build");
            recording.start = WholeIn<std::int64_t>(line.at("start"));
        } catch (const std::exception& error) {
            throw std::runtime_error(name + ":" + std::to_string(number) + ": no line of a recording: " + error.what());
        }
    }
    if (recording.events.empty() || !std::holds_alternative<EndEvent>(recording.events.back().what))
        throw std::runtime_error(name + " has no end: it was not recorded whole");
    return recording;
}

Recorder::Recorder(const std::filesystem::path& path, const Setting& setting, const std::string& build) : m_file(path) {
    if (!m_file) throw std::runtime_error("cannot write " + path.string());
    const Json head = {{"recording", kVersion},        {"build", build},           {"seed", setting.seed},
                       {"start", setting.start},       {"screen", setting.screen}, {"lang", setting.language},
                       {"scenario", setting.scenario}, {"mode", setting.mode}};
    m_file << head.dump() << '\n';
}

void Recorder::OnKey(std::int32_t code, std::int32_t state) { Write({{"key", Json::array({code, state})}}); }

void Recorder::OnCommand(std::string_view operation, std::span<const std::byte> payload, std::uint32_t size) {
    Write({{"command", operation}, {"payload", Hex(payload)}, {"size", size}});
}

void Recorder::OnListening(bool listens) { Write({{"listens", listens}}); }

void Recorder::OnCall(const meter::Frame& call, const meter::CallOutcome& outcome) {
    Json line = {{"call", call.name},
                 {"payload", Hex(meter::WithoutSecrets(call.name, call.payload))},
                 {"size", call.responseSize},
                 {"reply", Hex(outcome.reply)}};
    if (outcome.reset) line["reset"] = true;
    if (outcome.held.count() != 0) line["held"] = outcome.held.count();
    if (outcome.pace.count() != 0) line["pace"] = outcome.pace.count();
    Write(std::move(line));
}

void Recorder::OnFrame(const panel::Frame& frame) {
    Write({{"frame", m_frames}, {"change", Hex(PackChange(m_last, frame))}});
    m_last = frame;
    ++m_frames;
}

void Recorder::Finish() {
    m_finished = true;
    Write({{"end", true}});
    m_file.flush();
    if (!m_file) throw std::runtime_error("the recording could not be written whole");
}

void Recorder::Write(Json line) {
    Json timed = {{"t", Scheduler::Instance().Now()}};
    timed.update(line);
    m_file << timed.dump() << '\n';
}

std::string BuildName(const std::filesystem::path& romfs) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    Digest("/proc/self/exe", hash);
    Digest(romfs / "resources.pbr", hash);
    Digest(romfs / "localization.dat", hash);
    const auto bytes = std::as_bytes(std::span(&hash, 1));
    return Hex(bytes);
}

}  // namespace session
