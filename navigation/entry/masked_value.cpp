#include "navigation/entry/masked_value.h"

#include <algorithm>

namespace {

constexpr char kDigit = '#';
constexpr char kOptionalDigit = '?';
constexpr char kSign = 'S';
constexpr char kBlank = ' ';

constexpr std::string_view kSeparators = ".,:";  // any of them may stand in a text where the mask has its own
constexpr std::string_view kNone = "None";

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }
constexpr bool IsSign(char character) { return character == '+' || character == '-'; }
constexpr bool IsPlaceOfDigit(char inMask) { return inMask == kDigit || inMask == kOptionalDigit; }

constexpr char UpperCase(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool ReadsNone(std::string_view text) { return std::ranges::equal(text, kNone, {}, UpperCase, UpperCase); }

void SkipBlanks(std::string_view& text) { text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size())); }

std::string_view TakeDigits(std::string_view& text) {
    SkipBlanks(text);
    const auto end = std::ranges::find_if_not(text, IsDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

char TakeSign(std::string_view& text) {
    SkipBlanks(text);
    if (text.empty() || !IsSign(text.front())) return '+';
    const char sign = text.front();
    text.remove_prefix(1);
    return sign;
}

bool TakeSeparator(std::string_view& text) {
    if (text.empty()) return true;
    if (kSeparators.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

EntryResult MaskedValue::setMask(std::string_view mask) {
    if (mask.empty()) return EntryResult::WrongLength;
    if (mask.size() > kLongest) return EntryResult::TooLong;
    m_mask.fill('\0');
    std::ranges::copy(mask, m_mask.begin());
    m_size = mask.size();
    clear();
    CursorToLast();
    return EntryResult::Accepted;
}

EntryResult MaskedValue::setValue(std::string_view text) {
    CursorToLast();
    if (m_zero == ZeroReads::None && ReadsNone(text)) {
        clear();
        return validate();
    }
    if (text.size() > kLongest) return EntryResult::TooLong;
    if (text.empty() || text.size() > m_size) return EntryResult::WrongLength;
    Text cells{};
    if (std::ranges::none_of(text, IsDigit) || !Fit(text, cells)) return EntryResult::DoesNotFit;
    const EntryResult result = Validate(cells);
    if (result == EntryResult::Accepted) m_cells = cells;
    return result;
}

void MaskedValue::clear() {
    m_cells.fill('\0');
    static_cast<void>(Fit({}, m_cells));  // an empty text fits every mask
}

void MaskedValue::CursorToLast() {
    if (m_size == 0) return;
    m_cursor = m_size - 1;
    while (m_cursor > 0 && !IsPlaceOfDigit(m_mask[m_cursor])) --m_cursor;
}

/// The length of the group of digits that begins at a position; 0 when none does.
std::size_t MaskedValue::GroupAt(std::size_t place) const {
    std::size_t end = place;
    while (end < m_size && IsPlaceOfDigit(m_mask[end])) ++end;
    return end - place;
}

bool MaskedValue::Fit(std::string_view text, Text& cells) const {
    for (std::size_t place = 0; place < m_size;) {
        const std::size_t length = GroupAt(place);
        if (length > 0) {
            const std::string_view digits = TakeDigits(text);
            if (digits.size() > length) return false;
            FillGroup(place, length, digits, cells);
            place += length;
        } else if (m_mask[place] == kSign) {
            cells[place++] = TakeSign(text);
        } else {
            if (!TakeSeparator(text)) return false;
            cells[place] = m_mask[place];
            ++place;
        }
    }
    SkipBlanks(text);
    return text.empty();
}

void MaskedValue::FillGroup(std::size_t place, std::size_t length, std::string_view digits, Text& cells) const {
    const bool isFraction = m_mask[place] == kDigit && m_mask[place + length - 1] == kOptionalDigit;
    const std::size_t before = isFraction ? 0 : length - digits.size();
    for (std::size_t i = 0; i < length; ++i)
        cells[place + i] = m_mask[place + i] == kDigit || isFraction ? '0' : kBlank;
    std::copy(digits.begin(), digits.end(), cells.begin() + place + before);
}

EntryResult MaskedValue::Validate(const Text& cells) const {
    if (m_size == 0) return EntryResult::NoMask;
    const auto fits = [](char inMask, char character) {
        switch (inMask) {
            case kDigit: return IsDigit(character);
            case kOptionalDigit: return IsDigit(character) || character == kBlank;
            case kSign: return IsSign(character);
        }
        return character == inMask;
    };
    const bool allFit = std::equal(m_mask.begin(), m_mask.begin() + m_size, cells.begin(), fits);
    return allFit ? EntryResult::Accepted : EntryResult::DoesNotFit;
}

void MaskedValue::cursorLeft() {
    for (std::size_t tried = 0; tried < m_size; ++tried) {
        m_cursor = m_cursor > 0 ? m_cursor - 1 : m_size - 1;
        if (StopsAtCursor()) return;
    }
}

bool MaskedValue::StopsAtCursor() {
    const char inMask = m_mask[m_cursor];
    if (inMask != kOptionalDigit) return inMask == kDigit || inMask == kSign;
    if (IsDigit(m_cells[m_cursor])) return true;
    if (!IsDigit(m_cells[m_cursor + 1])) return false;
    step();
    return true;
}

void MaskedValue::step() {
    if (m_size == 0) return;
    char& cell = m_cells[m_cursor];
    if (IsDigit(cell)) {
        cell = cell == '9' ? '0' : static_cast<char>(cell + 1);
    } else if (IsSign(cell) && m_mask[m_cursor] == kSign) {
        cell = cell == '+' ? '-' : '+';
    } else if (cell == kBlank && m_mask[m_cursor] == kOptionalDigit) {
        cell = '0';
    }
}

MaskedValue::Text MaskedValue::getValue() const {
    Text text{};
    std::size_t length = 0;
    bool inNumber = false;  // behind the first digit of a group
    for (std::size_t place = 0; place < m_size; ++place) {
        const char cell = m_cells[place];
        const bool isBlank = cell == kBlank && IsPlaceOfDigit(m_mask[place]);
        inNumber = IsPlaceOfDigit(m_mask[place]) && (inNumber || !isBlank);
        if (!isBlank) {
            text[length++] = cell;
        } else if (inNumber) {
            text[length++] = '0';
        }
    }
    const bool isZero = std::ranges::none_of(text, [](char c) { return c >= '1' && c <= '9'; });
    if (m_zero == ZeroReads::None && isZero) {
        text.fill('\0');
        std::ranges::copy(kNone, text.begin());
    }
    return text;
}

bool MaskedValue::IsSameNumber(const MaskedValue& other) const {
    const auto digit = [](char cell) { return cell == kBlank ? '0' : cell; };
    return Mask() == other.Mask() && std::ranges::equal(Cells(), other.Cells(), {}, digit, digit);
}
