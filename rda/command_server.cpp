#include "rda/command_server.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

#include "rda/frame.h"
#include "rda/server.h"
#include "rda/wire.h"

namespace {

using Payload = std::span<const std::uint8_t>;
using Response = std::span<std::uint8_t>;

/// Which response sizes a command accepts.
enum class Reply { Any, Word, Text };  // Text: the size that the payload's word names

struct Command {
    const char* name;
    std::uint32_t payloadBytes;
    Reply reply;
    void (*run)(Payload payload, Response response);
};

constexpr std::uint32_t kWord = sizeof(std::uint32_t);
constexpr std::uint32_t kButtonEvent = 4 * kWord;
constexpr std::uint32_t kDisplayAppVariant = 2;

const DisplayCommands* display = nullptr;  // set before the server serves

std::uint32_t WordAt(Payload payload, std::size_t index) {
    WireU32 word{};
    std::copy_n(payload.begin() + static_cast<std::ptrdiff_t>(index * kWord), kWord, word.bytes.begin());
    return word.Get();
}

void PutWord(Response response, std::uint32_t value) {
    WireU32 word{};
    word.Set(value);
    std::copy_n(word.bytes.begin(), kWord, response.begin());
}

std::span<char> TextOf(Response response) { return {reinterpret_cast<char*>(response.data()), response.size()}; }

void PutVersion(Response response, int (*query)(std::uint32_t* word)) {
    std::uint32_t word = 0;
    query(&word);
    std::snprintf(TextOf(response).data(), response.size(), "%03d.%03d.%03d", static_cast<int>(word & 0xFF),
                  static_cast<int>(word >> 8 & 0xFF), static_cast<int>(word >> 16));
}

void PutSerialNumber(Response response) {
    if (response.empty()) return;
    if (display->serialNumber(TextOf(response)) != 0) response[0] = 0;
}

// clang-format off
constexpr auto kCommands = std::to_array<Command>({
    {"VEKHWIF_getHwId", 0, Reply::Word,
     [](Payload, Response out) { PutWord(out, display->hardwareId()); }},
    {"NAVCMDINT_changeAltModeState", kWord, Reply::Any,
     [](Payload in, Response) { display->changeAltModeState(WordAt(in, 0)); }},
    {"NAVCMDINT_navigateTo", kWord, Reply::Any,
     [](Payload in, Response) { display->navigateTo(WordAt(in, 0)); }},
    {"NAVCMDINT_navigateToDispTest", 0, Reply::Any,
     [](Payload, Response) { display->navigateToDispTest(); }},
    {"DISPCFG_setLanguage", kWord, Reply::Any,
     [](Payload in, Response) { display->setLanguage(WordAt(in, 0)); }},
    {"DISPCFG_setPhaseLabels", kWord, Reply::Any,
     [](Payload in, Response) { display->setPhaseLabels(WordAt(in, 0)); }},
    {"DISPCFG_setMeasSymbols", kWord, Reply::Any,
     [](Payload in, Response) { display->setMeasSymbols(WordAt(in, 0)); }},
    {"NAVCMDINT_changeTestModeState", kWord, Reply::Any,
     [](Payload in, Response) { display->changeTestModeState(WordAt(in, 0)); }},
    {"MISCINT_getVekKrnlVersion", kWord, Reply::Text,
     [](Payload, Response out) { PutVersion(out, display->kernelVersion); }},
    {"MISCINT_getVekDisplayAppVersion", kWord, Reply::Text,
     [](Payload, Response out) { std::snprintf(TextOf(out).data(), out.size(), "N/A"); }},
    {"MISCINT_getVekOsPkgVersion", kWord, Reply::Text,
     [](Payload, Response out) { PutVersion(out, display->osPackageVersion); }},
    {"MISCINT_getVekSerialNumber", kWord, Reply::Text,
     [](Payload, Response out) { PutSerialNumber(out); }},
    {"MISCINT_getVekDisplayAppVariant", 0, Reply::Word,
     [](Payload, Response out) { PutWord(out, kDisplayAppVariant); }},
    {"BACKLIGHT_setTimeout", kWord, Reply::Any,
     [](Payload in, Response) { display->setBacklightTimeout(WordAt(in, 0)); }},
    {"BUTTON_simulate_input", kButtonEvent, Reply::Any,
     [](Payload in, Response) {
         display->handleButtonEvent({WordAt(in, 0), WordAt(in, 1), WordAt(in, 2), WordAt(in, 3)});
     }},
});
// clang-format on
static_assert(kCommands.size() == 15);

constexpr bool NamesDiffer() {
    for (std::size_t i = 0; i < kCommands.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (std::string_view(kCommands[i].name) == kCommands[j].name) return false;
        }
    }
    return true;
}
static_assert(NamesDiffer(), "a command stands in two rows");

bool IsWantedSize(Reply reply, Payload payload, std::size_t responseSize) {
    if (reply == Reply::Any) return true;
    return responseSize == (reply == Reply::Word ? kWord : WordAt(payload, 0));
}

/// Carries a command out when its sizes are right; the response stays zero when they are not.
void Run(const Command& command, Payload payload, Response response) {
    if (payload.size() != command.payloadBytes) {
        std::printf("%sPayload size does not match expected!\n", command.name);
        return;
    }
    if (!IsWantedSize(command.reply, payload, response.size())) {
        std::printf("%sResponse size does not match expected!\n", command.name);
        return;
    }
    command.run(payload, response);
}

template <std::size_t Row>
void Handle(std::uint32_t payloadSize, const std::uint8_t* payload, std::uint32_t responseSize,
            std::uint8_t** response) {
    Run(kCommands[Row], {payload, payloadSize}, {*response, responseSize});
}

template <std::size_t... Rows>
void RegisterAll(RdaServer& server, std::index_sequence<Rows...>) {
    (server.registerHandler(kCommands[Rows].name, Handle<Rows>), ...);
}

}  // namespace

void registerDisplayCommands(RdaServer& server, const DisplayCommands& commands) {
    display = &commands;
    RegisterAll(server, std::make_index_sequence<kCommands.size()>());
}

int commandServerTask(os::TaskArgument commands) {
    std::printf("\n\nStarting Display Server to receive commands from the meter\n");
    static RdaServer& server = *new RdaServer;  // too large for the stack, and in use until the process ends
    // The argument of a task is a word. NOLINTNEXTLINE(performance-no-int-to-ptr)
    registerDisplayCommands(server, *reinterpret_cast<const DisplayCommands*>(commands));
    server.serve(rda::kDisplayPort, rda::kLocalAddress, 1, 0);
    return 0;
}
