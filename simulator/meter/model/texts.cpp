#include "simulator/meter/model/texts.h"

#include <algorithm>
#include <array>

#include "simulator/meter/model/alarms.h"
#include "simulator/meter/model/catalogue.h"
#include "simulator/meter/model/event_log.h"
#include "simulator/meter/model/format.h"
#include "simulator/meter/model/io_points.h"
#include "simulator/meter/model/pages.h"

namespace meter::texts {
namespace {

constexpr auto kSentences = std::to_array<std::string_view>({
    kFactorySettings,
    kPowerRestored,
    kDisplayConnected,
    kAlarmStarted,
    kAlarmEnded,
    kActiveAcknowledged,
    kHistoryAcknowledged,
    kLoginAccepted,
    kLoginRefused,
    kAltModeEntered,
    kAltModeLeft,
    kTestModeEntered,
    kTestModeLeft,
    kDisplayTestPassed,
    kDisplayTestFailed,
    kHardwareLocked,
    kNotLoggedIn,
    kRefused,
    kUnknownRegister,
    kReadOnly,
    kNotAChoice,
    kNotANumber,
    kOutOfRange,
    kNotAnAddress,
    kOn,
    kOff,
    kLagging,
    kLeading,
    kFrontPanelModule,
    kFactoryModule,
    kMeterModule,
});

bool HasLetters(std::string_view text) {
    return std::ranges::any_of(text, [](char one) { return (one >= 'A' && one <= 'Z') || (one >= 'a' && one <= 'z'); });
}

/// Addresses, dates and the like are the same in every language.
bool IsWords(const Register& row) {
    return row.kind == Kind::ReadOnlyText && row.preset.find_first_of(".:") == row.preset.npos;
}

}  // namespace

std::vector<std::string_view> All() {
    std::vector<std::string_view> all(kSentences.begin(), kSentences.end());
    for (const Register& row : Catalogue()) {
        all.push_back(row.label);
        all.insert(all.end(), row.items.begin(), row.items.end());
        if (IsWords(row)) all.push_back(row.preset);
    }
    for (std::size_t i = 0; i < kQuantityCount; ++i) all.push_back(Symbol(static_cast<Quantity>(i)));
    for (const AlarmDefinition& definition : AlarmDefinitions()) {
        all.push_back(definition.name);
        all.push_back(PriorityName(definition.priority));
    }
    for (PageSet set : {PageSet::Normal, PageSet::Custom, PageSet::Test})
        for (const Page& page : PagesOf(set)) all.push_back(page.title);
    for (const auto& more : {IoPoints::Labels(), UnitTexts()}) all.insert(all.end(), more.begin(), more.end());
    std::erase_if(all, [](std::string_view text) { return !HasLetters(text) && text != "%"; });
    std::ranges::sort(all);
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

}  // namespace meter::texts
