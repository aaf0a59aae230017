#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/meter/model/catalogue.h"
#include "simulator/meter/model/clock.h"
#include "simulator/meter/model/format.h"
#include "simulator/meter/model/network.h"

/// What the user has set: the texts of all registers that can be set, and what they mean to the model.
namespace meter {

/// What limits and voltage quality refer to.
struct Nominals {
    double voltage = 230.0;  // V to neutral
    double current = 250.0;  // A
    double frequency = 50.0;
};

class Settings {
public:
    Settings();

    /// The text a register holds; empty for readings and resets.
    std::string_view Text(std::uint16_t id) const;
    double Number(std::uint16_t id) const;
    /// Index of the item that a choice holds.
    std::uint32_t Item(std::uint16_t id) const;
    bool IsYes(std::uint16_t id) const { return Text(id) == "Yes"; }

    /// Why a text cannot be written to a register, or nothing when it can. Knows nothing of locks and logins.
    static std::optional<std::string_view> Objection(const Register& target, std::string_view text);

    /// Stores a text that met no objection, in the register's own spelling.
    void Write(const Register& target, std::string_view text);

    Connection ConnectionSettings() const;
    Clock ClockSettings() const;
    NumberStyle NumberSettings() const;
    Nominals NominalValues() const;

private:
    std::map<std::uint16_t, std::string> m_texts;
};

}  // namespace meter
