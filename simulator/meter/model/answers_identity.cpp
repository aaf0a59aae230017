#include "rda/records.h"
#include "simulator/meter/model/answers.h"
#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

constexpr std::uint32_t kModeAccepted = 0;
constexpr std::uint32_t kModeRefused = 1;

/// The texts of the nameplate that never change, by field number.
struct NameplateRow {
    std::size_t field;
    std::string_view text;
};
// clang-format off
constexpr auto kNameplate = std::to_array<NameplateRow>({
    {0, "PM-4000"},          {1, "MP-1304A0417-02"},   {2, "35S"},              {3, "Plant North"},
    {4, "Feeder 4"},         {5, "Workshop"},          {6, "512"},              {7, "2.11.0"},
    {8, "Rev. C"},           {15, "2.0.4"},
    {16, "2.11.0"},          {17, "1.6.2"},            {18, "00:1B:C5:09:4A:7E"}, {19, "192.168.1.40"},
    {20, "fe80::21b:c5ff:fe09:4a7e"}, {21, "meter-4a7e"}, {22, "Class 0.2S"},
});
// The fields that follow a setting.
struct NameplateSetting {
    std::size_t field;
    std::uint16_t id;
};
constexpr auto kNameplateSettings = std::to_array<NameplateSetting>({
    {9, reg::kWiring}, {10, reg::kNominalFrequency}, {11, reg::kNominalVoltage}, {12, reg::kNominalCurrent},
});
// clang-format on

std::string Ratio(const Settings& settings, std::uint16_t primary, std::uint16_t secondary) {
    return std::string(settings.Text(primary)) + " : " + std::string(settings.Text(secondary));
}

}  // namespace

void GetNameplate(Meter& meter, const Request&, std::span<std::byte> reply) {
    NameplateData data{};
    for (const NameplateRow& row : kNameplate) PutText(data.fields[row.field], row.text);
    for (const NameplateSetting& row : kNameplateSettings) {
        const auto text = meter.Read(row.id);
        if (text)
            PutText(data.fields[row.field],
                    text->unit.empty() ? text->value : text->value + " " + std::string(text->unit));
    }
    PutText(data.fields[10], std::string(meter.GetSettings().Text(reg::kNominalFrequency)) + " Hz");
    PutText(data.fields[13], Ratio(meter.GetSettings(), reg::kPtPrimary, reg::kPtSecondary));
    PutText(data.fields[14], Ratio(meter.GetSettings(), reg::kCtPrimary, reg::kCtSecondary));
    Put(reply, data);
}

void VerifyPassword(Meter& meter, const Request& request, std::span<std::byte> reply) {
    const Verdict verdict = meter.GetSecurity().LogIn(request.texts[0], request.texts[1]);
    meter.GetEventLog().Add(meter.Now(), kFrontPanelModule,
                            verdict == Verdict::Accepted ? texts::kLoginAccepted : texts::kLoginRefused);
    PutWord(reply, static_cast<std::uint32_t>(verdict));
}

void GetDateTime(Meter& meter, const Request&, std::span<std::byte> reply) {
    const Clock& clock = meter.GetClock();
    DateTimeStrings strings{};
    PutText(strings.date, clock.DateText(meter.Now()));
    PutText(strings.time, clock.TimeText(meter.Now()));
    Put(reply, strings);
}

void SetAltMode(Meter& meter, const Request& request, std::span<std::byte> reply) {
    const std::uint32_t wanted = request.words[0] == 0 ? 0 : 1;
    if (wanted != meter.altMode)
        meter.GetEventLog().Add(meter.Now(), kFrontPanelModule,
                                wanted == 1 ? texts::kAltModeEntered : texts::kAltModeLeft);
    meter.altMode = wanted;
    PutWord(reply, kModeAccepted);
}

void SetTestMode(Meter& meter, const Request& request, std::span<std::byte> reply) {
    const std::uint32_t wanted = request.words[0] == 0 ? 0 : 1;
    if (meter.HasHardwareLock() && wanted != meter.testMode) return PutWord(reply, kModeRefused);
    if (wanted != meter.testMode)
        meter.GetEventLog().Add(meter.Now(), kFrontPanelModule,
                                wanted == 1 ? texts::kTestModeEntered : texts::kTestModeLeft);
    meter.testMode = wanted;
    PutWord(reply, kModeAccepted);
}

void SetFactoryTestResult(Meter& meter, const Request& request, std::span<std::byte>) {
    meter.GetEventLog().Add(meter.Now(), kFactoryModule,
                            request.words[0] == 0 ? texts::kDisplayTestPassed : texts::kDisplayTestFailed);
}

}  // namespace meter
