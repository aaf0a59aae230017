#include "simulator/session/recording.h"

#include <zlib.h>

#include <array>
#include <charconv>
#include <stdexcept>

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

panel::Frame UnpackChange(const panel::Frame& from, const Bytes& packed) {
    panel::Frame frame;
    uLongf size = frame.size();
    if (uncompress(frame.data(), &size, reinterpret_cast<const Bytef*>(packed.data()), packed.size()) != Z_OK ||
        size != frame.size())
        throw std::runtime_error("the pixels are no frame");
    for (std::size_t i = 0; i < frame.size(); ++i) frame[i] ^= from[i];
    return frame;
}

Event EventOf(const Json& line, panel::Frame& last) {
    const Instant time = line.at("t");
    if (line.contains("key")) return {time, KeyEvent{line["key"].at(0), line["key"].at(1)}};
    if (line.contains("command"))
        return {time, CommandEvent{line["command"], FromHex(line.at("payload")), line.at("size")}};
    if (line.contains("listens")) return {time, ListenEvent{line["listens"]}};
    if (line.contains("call"))
        return {time, CallEvent{{line["call"], FromHex(line.at("payload")), line.at("size")},
                                {line.value("reset", false), FromHex(line.at("reply")),
                                 std::chrono::milliseconds(line.value("held", 0)),
                                 std::chrono::milliseconds(line.value("pace", 0))}}};
    if (line.contains("frame")) {
        last = UnpackChange(last, FromHex(line.at("change")));
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
    Recording recording;
    panel::Frame last{};
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        try {
            const Json line = Json::parse(text);
            if (number > 1) {
                recording.events.push_back(EventOf(line, last));
                continue;
            }
            if (line.at("recording") != kVersion) throw std::runtime_error("it is of another version");
            recording.build = line.at("build");
            recording.start = line.at("start");
        } catch (const std::exception& error) {
            throw std::runtime_error(path.string() + ":" + std::to_string(number) +
                                     ": no line of a recording: " + error.what());
        }
    }
    if (recording.events.empty() || !std::holds_alternative<EndEvent>(recording.events.back().what))
        throw std::runtime_error(path.string() + " has no end: it was not recorded whole");
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
                 {"payload", Hex(call.payload)},
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
