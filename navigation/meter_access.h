#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "navigation/power_quality_display.h"
#include "rda/meter_operations.h"

/// One register as a parameter row shows it: texts in the selected language, empty where the meter gave none.
struct RegisterDisplay {
    std::array<char16_t, 40> label{};
    std::array<char16_t, 45> value{};
    std::array<char16_t, 10> unit{};
    std::array<char16_t, 11> date{};
    std::array<char16_t, 12> time{};

    friend bool operator==(const RegisterDisplay&, const RegisterDisplay&) = default;
};
static_assert(sizeof(RegisterDisplay) == 236);

/// The meter as screens ask it: every failed call reads as an empty answer.
///
/// Each operation makes one call and blocks until it is answered or given up. Outputs are all zero after a failure.
/// Toolkit task only.
class meterAccessClass {
public:
    static meterAccessClass& getInstance();

    /// 0 also when the meter does not answer.
    std::uint32_t getAltMode();
    std::uint32_t getTestMode();

    /// @return 0 when the meter accepts, its own result word when it refuses, -1 when it does not answer
    std::int32_t setAltMode(std::uint32_t value);
    std::int32_t setTestMode(std::uint32_t value);

    /// Tells the meter that the display is alive.
    void keepAlive();

    /// False once when the meter's connection is another than before, and on every sixth failure in a row.
    bool isSameMeterConnection();

    /// The register as texts to show. @return 0, or -1
    int readRegister(std::uint32_t registerId, RegisterDisplay& out);

    /// @return 0, or -1
    int readRegisterRaw(std::uint32_t registerId, RegisterValue& out);
    int readDateTime(DateTimeStrings& out);

    /// The item that a register selects. @return 0, or -1 when the meter could not read it either
    int readSelection(std::uint32_t registerId, std::uint32_t& selected);

    /// All items of a register and the one that it selects. @return 0, or -1 when the meter could not read it either
    int readEnumeration(std::uint32_t registerId, EnumerationData& out);

    static constexpr std::size_t kPhasors = 10;

    /// The phasors of voltages and currents. @return 0, or -1
    int readPhasors(std::span<PhasorDisplay, kPhasors> out);

    /// The spectrum of a channel, and the figures of one harmonic, counted from 0. @return 0, or -1
    int readHarmonics(std::uint32_t channel, std::uint32_t harmonic, HarmonicDisplay& out);

    /// A quantity's extremes and its present value, each a register. @return 0, or -1
    int readMinMaxBar(std::uint32_t minimumId, std::uint32_t maximumId, std::uint32_t presentId, MinMaxBarDisplay& out);

    /// The status word of the hardware lock. @return 0, or -1
    int readHwLockStatus(std::uint32_t& status);

private:
    meterAccessClass() = default;

    std::uint32_t m_connectionId = 0;
    bool m_connectionKnown = false;
    int m_connectionFailures = 0;
};
