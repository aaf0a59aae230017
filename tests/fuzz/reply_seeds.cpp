#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "simulator/meter/wire/signatures.h"
#include "tests/fuzz/panel_walk.h"

// Writes what the fuzzer begins with when it makes up replies: for each screen the true replies of a meter, and for
// each setting those of a login and a write. Fails when there is a kind of reply that none of them holds.

namespace {

using Act = PanelWalk::Act;
using Acts = std::vector<Act>;

const Acts kChange = {Act::Soft3, Act::Soft4, Act::Soft4, Act::Second};
const Acts kLogIn = {Act::Soft4, Act::Enter, Act::Digit, Act::Enter};
constexpr auto kAskedAtStart =
    std::to_array<std::string_view>({"BACKLIGHTINTERFACE_getTimeout", "DISPLAYFEATURES_getNumHarmonicsDisplayed",
                                     "DISPLAYFEATURES_getEn50160DisplayEnabled"});  // each a number, and asked once
constexpr int kMostSettings = 6;                                                    // on a page
const Acts kLookAround = {Act::Soft2, Act::Soft3, Act::Soft4};
const Acts kCommands = {Act::AltMode, Act::TestMode, Act::NormalMode, Act::TaskOfASecond};

/// Notes all replies of a meter that answers truly.
class Recorder {
public:
    explicit Recorder(std::filesystem::path folder) : m_folder(std::move(folder)) {
        ScriptedMeter& meter = PanelWalk::meter();
        meter.Model().Play(*meter::FindScenario("500-alarms"));
        meter.Model().Advance(1000);
        meter.TakeEveryCall([this, &meter](auto operation, auto payload, auto response) {
            if (!meter.Model().Answer(operation, payload, response)) return false;
            m_replies.append(reinterpret_cast<const char*>(response.data()), response.size());
            if (!response.empty()) m_seen.emplace(operation);
            return true;
        });
    }

    void Record(const std::string& name, std::int32_t screen, const Acts& acts) {
        m_replies.clear();
        m_walk.Enter(screen);
        for (const Act act : acts) m_walk.Do(act);
        std::string head = {static_cast<char>(screen), 0, static_cast<char>(acts.size())};
        for (const Act act : acts) head += static_cast<char>(act);
        std::ofstream(m_folder / (name + "_" + std::to_string(screen)), std::ios::binary) << head << m_replies;
        m_walk.Leave();
        m_walk.Do(Act::NormalMode);
    }

    /// Chooses each setting of a page in turn, logs in, and changes it.
    void RecordWrites(std::int32_t screen) {
        for (int setting = 0; setting < kMostSettings; ++setting) {
            Acts acts(static_cast<std::size_t>(setting), Act::Soft23);
            for (const Acts& more : {kLogIn, kChange}) acts.insert(acts.end(), more.begin(), more.end());
            Record("write_" + std::to_string(setting), screen, acts);
        }
    }

    /// The operations with a reply of which nothing was recorded.
    int Unseen() const {
        int unseen = 0;
        for (const meter::Signature& operation : meter::MeterOperations()) {
            if (operation.reply.shape == meter::ReplyShape::None || m_seen.contains(operation.name)) continue;
            if (std::ranges::find(kAskedAtStart, operation.name) != kAskedAtStart.end()) continue;
            std::fprintf(stderr, "no screen reads %s\n", std::string(operation.name).c_str());
            ++unseen;
        }
        return unseen;
    }

private:
    std::filesystem::path m_folder;
    PanelWalk m_walk;
    std::string m_replies;
    std::set<std::string, std::less<>> m_seen;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::filesystem::create_directories(argv[1]);
    Recorder recorder(argv[1]);
    for (std::int32_t screen = SCREEN_ID_FACTORY_TEST; screen <= kLastCommandedScreen; ++screen) {
        recorder.Record("screen", screen, {});
        const ScreenKind kind = PanelWalk::Navigation().getScreenKind(screen);
        if (kind == SCREEN_KIND_DATA) recorder.Record("keys", screen, kLookAround);
        if (kind == SCREEN_KIND_SETUP_EDIT) recorder.Record("change", screen, kChange);
        if (kind == SCREEN_KIND_SETUP_VIEW) recorder.RecordWrites(screen);
    }
    recorder.Record("commands", 1, kCommands);
    return recorder.Unseen() == 0 ? 0 : 1;
}
