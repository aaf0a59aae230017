#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string_view>

#include "rda/records.h"
#include "simulator/meter/model/meter.h"
#include "simulator/meter/model/operations.h"

/// What writes the replies: one handler an operation, by subject in the answers_*.cpp files.
namespace meter {

/// Copies a record to the place of entry `index`.
template <typename Record>
void Put(std::span<std::byte> reply, const Record& record, std::size_t index = 0) {
    const auto place = reply.subspan(index * sizeof(Record), sizeof(Record));
    std::memcpy(place.data(), &record, sizeof(Record));
}

inline void PutWord(std::span<std::byte> reply, std::uint32_t value) {
    WireU32 word{};
    word.Set(value);
    Put(reply, word);
}

/// A field that holds as much of a text as fits before the terminator.
template <std::size_t Size>
void PutText(std::array<char, Size>& field, std::string_view text) {
    field = {};
    std::ranges::copy(text.substr(0, Size - 1), field.begin());
}

// Registers.
::RegisterValue RegisterRecord(const Meter& meter, std::uint32_t id);
void GetEnumerationValue(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetEnumerationData(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetRegisterValue(Meter& meter, const Request& request, std::span<std::byte> reply);
void SetRegisterValue(Meter& meter, const Request& request, std::span<std::byte> reply);
template <PageSet Set>
void GetPage(Meter& meter, const Request& request, std::span<std::byte> reply);

// Alarms and events.
void GetActiveAlarmStats(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetActiveAlarms(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetHistoricalAlarmStats(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetHistoricalAlarms(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetSettableAlarms(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetEventLogData(Meter& meter, const Request& request, std::span<std::byte> reply);

// Power quality.
void GetPhasorData(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetHarmonicData(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetMinMaxBarData(Meter& meter, const Request& request, std::span<std::byte> reply);

// Identity, points and modes.
void GetNameplate(Meter& meter, const Request& request, std::span<std::byte> reply);
void VerifyPassword(Meter& meter, const Request& request, std::span<std::byte> reply);
void GetDateTime(Meter& meter, const Request& request, std::span<std::byte> reply);
void SetAltMode(Meter& meter, const Request& request, std::span<std::byte> reply);
void SetTestMode(Meter& meter, const Request& request, std::span<std::byte> reply);
void SetFactoryTestResult(Meter& meter, const Request& request, std::span<std::byte> reply);

}  // namespace meter
