#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// What became of a mask or a text.
enum class EntryResult : std::int32_t { Accepted = 0, WrongLength = 1, NoMask = 2, DoesNotFit = 3, TooLong = 4 };

/// How a value without any digit but 0 reads.
enum class ZeroReads : std::uint32_t { Digits = 0, None = 1 };

/// A number, address or time that is composed key by key: one character for each position of a mask, and a cursor.
///
/// In a mask '#' is a digit that is always there, '?' one that is blank when it is not used, 'S' a sign; any other
/// character is itself. A run of digits is a group. A text fills the groups one by one from their last digit on; but a
/// group whose optional digits stand behind the others, "#?", is the fraction of a number and is filled from its first.
class MaskedValue {
public:
    static constexpr std::size_t kLongest = 15;
    using Text = std::array<char, kLongest + 1>;  // zero behind its end

    explicit MaskedValue(ZeroReads zero = ZeroReads::Digits) : m_zero(zero) {}

    /// Begins with the value zero and the cursor on the last digit. A mask that is refused changes nothing.
    [[nodiscard]] EntryResult setMask(std::string_view mask);

    /// Takes over a text; one that is refused leaves the value as it is. The cursor goes to the last digit.
    [[nodiscard]] EntryResult setValue(std::string_view text);
    [[nodiscard]] EntryResult validate() const { return Validate(m_cells); }

    /// All digits become 0 or blank.
    void clear();

    /// Moves the cursor to the next digit or sign on the left, and from the first to the last. It also stops at the
    /// blank before a digit, which becomes 0.
    void cursorLeft();

    /// The next digit, or the other sign, under the cursor.
    void step();

    /// The value without the blanks before its groups; "None" for zero where that is how zero reads.
    [[nodiscard]] Text getValue() const;

    /// Whether both read the same when a blank counts as 0.
    bool IsSameNumber(const MaskedValue& other) const;

    std::size_t Size() const { return m_size; }
    std::size_t Cursor() const { return m_cursor; }
    std::string_view Mask() const { return {m_mask.data(), m_size}; }
    std::string_view Cells() const { return {m_cells.data(), m_size}; }

private:
    bool Fit(std::string_view text, Text& cells) const;
    std::size_t GroupAt(std::size_t place) const;
    void FillGroup(std::size_t place, std::size_t length, std::string_view digits, Text& cells) const;
    EntryResult Validate(const Text& cells) const;
    bool StopsAtCursor();
    void CursorToLast();

    ZeroReads m_zero;
    std::size_t m_size = 0;
    std::size_t m_cursor = kLongest - 1;
    Text m_mask{};
    Text m_cells{};
};
