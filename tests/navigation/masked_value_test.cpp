#include "navigation/entry/masked_value.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr std::string_view kNumber = "?????#.#?";
constexpr std::string_view kAddress = "??#.??#.??#.??#";
constexpr std::string_view kWhole = "???#";
constexpr std::string_view kSeconds = "?#.#??";
constexpr std::string_view kTime = "S?#:?#:?#";

MaskedValue With(std::string_view mask, ZeroReads zero = ZeroReads::Digits) {
    MaskedValue value(zero);
    EXPECT_EQ(value.setMask(mask), EntryResult::Accepted) << mask;
    return value;
}

std::string Read(const MaskedValue& value) { return value.getValue().data(); }

TEST(MaskedValue, FitsTextsIntoItsMaskAndReadsThemBack) {
    struct Case {
        std::string_view mask, text, cells, reads;
    };
    constexpr Case kCases[] = {
        {kNumber, "400.5", "   400.50", "400.50"},  // half a unit, not a twentieth
        {kNumber, ".5", "     0.50", "0.50"},
        {kNumber, "  12,25 ", "    12.25", "12.25"},
        {kNumber, "00012.5", " 00012.50", "00012.50"},
        {kAddress, "192.168.1.40", "192.168.  1. 40", "192.168.1.40"},
        {kAddress, "10.1", " 10.  1.  0.  0", "10.1.0.0"},
        {kWhole, "42", "  42", "42"},
        {kSeconds, "12.5", "12.500", "12.500"},
        {kTime, "-01:00:00", "-01:00:00", "-01:00:00"},
        {kTime, "12:34:56", "+12:34:56", "+12:34:56"},
        {kTime, " 1:2:3", "+ 1: 2: 3", "+1:2:3"},
    };
    for (const auto& [mask, text, cells, reads] : kCases) {
        MaskedValue value = With(mask);
        EXPECT_EQ(value.setValue(text), EntryResult::Accepted) << mask << ' ' << text;
        EXPECT_EQ(value.Cells(), cells) << text;
        EXPECT_EQ(Read(value), reads) << text;
        EXPECT_EQ(value.validate(), EntryResult::Accepted) << text;
        EXPECT_EQ(value.Cursor(), mask.size() - 1) << text;
    }
}

TEST(MaskedValue, RefusesWhatDoesNotFitAndKeepsItsValue) {
    struct Case {
        std::string_view mask, text;
        EntryResult result;
    };
    constexpr Case kCases[] = {
        {kNumber, "", EntryResult::WrongLength},
        {kNumber, "1234567890", EntryResult::WrongLength},
        {kNumber, "1234567890123456", EntryResult::TooLong},
        {kNumber, "1234567", EntryResult::DoesNotFit},  // a digit too many
        {kNumber, "1.234", EntryResult::DoesNotFit},    // a decimal too many
        {kNumber, "1,234.5", EntryResult::DoesNotFit},  // a group too many
        {kNumber, "-5", EntryResult::DoesNotFit},       // it has no sign
        {kNumber, "None", EntryResult::DoesNotFit},     // only where zero reads so
        {kNumber, ".", EntryResult::DoesNotFit},
        {kNumber, "1 2.5", EntryResult::DoesNotFit},
        {kAddress, "1.2.3.4.5", EntryResult::DoesNotFit},
        {kWhole, "\xFF\xFF", EntryResult::DoesNotFit},
    };
    for (const auto& [mask, text, result] : kCases) {
        MaskedValue value = With(mask);
        ASSERT_EQ(value.setValue("1"), EntryResult::Accepted);
        value.cursorLeft();
        const std::string before(value.Cells());
        EXPECT_EQ(value.setValue(text), result) << text;
        EXPECT_EQ(value.Cells(), before) << text;
        EXPECT_EQ(value.Cursor(), mask.size() - 1) << "the cursor goes back to the last digit all the same";
    }
}

TEST(MaskedValue, TakesMasksOfOneToFifteenCharacters) {
    MaskedValue value;
    EXPECT_EQ(value.validate(), EntryResult::NoMask);
    value.cursorLeft();
    value.step();
    EXPECT_EQ(Read(value), "");
    EXPECT_EQ(value.setMask(""), EntryResult::WrongLength);
    EXPECT_EQ(value.setMask("################"), EntryResult::TooLong);
    EXPECT_EQ(value.validate(), EntryResult::NoMask) << "a refused mask changes nothing";
    EXPECT_EQ(value.setMask("#.#.#.#.#.#.#.#"), EntryResult::Accepted);
    EXPECT_EQ(value.setValue("1.2.3.4.5.6.7.8"), EntryResult::Accepted);
    EXPECT_EQ(Read(value), "1.2.3.4.5.6.7.8");
    EXPECT_EQ(value.setMask("#k"), EntryResult::Accepted);
    EXPECT_EQ(value.Cursor(), 0U) << "the last digit";
    EXPECT_EQ(Read(value), "0k");
    ASSERT_EQ(value.setMask("..."), EntryResult::Accepted);
    value.cursorLeft();
    value.step();
    EXPECT_EQ(Read(value), "...") << "nothing to edit, and no end of looking for it";
}

TEST(MaskedValue, MovesTheCursorLeftRoundTheEndAndIntoTheBlankBeforeADigit) {
    MaskedValue value = With(kNumber);
    ASSERT_EQ(value.setValue("42.5"), EntryResult::Accepted);
    const MaskedValue before = value;
    std::string visited;
    for (int i = 0; i < 9; ++i) {
        value.cursorLeft();
        visited += std::to_string(value.Cursor());
    }
    EXPECT_EQ(visited, "754321087");
    EXPECT_EQ(value.Cells(), "000042.50");
    EXPECT_TRUE(value.IsSameNumber(before));
    value.step();
    EXPECT_FALSE(value.IsSameNumber(before));
    EXPECT_FALSE(With(kNumber).IsSameNumber(With(kWhole)));

    MaskedValue address = With(kAddress);
    ASSERT_EQ(address.setValue("1.22.333.4"), EntryResult::Accepted);
    address.cursorLeft();
    EXPECT_EQ(address.Cells(), "  1. 22.333. 04");
    EXPECT_EQ(address.Cursor(), 13U);
}

TEST(MaskedValue, StepsDigitsRoundAndSignsToAndFro) {
    MaskedValue value = With(kTime);
    std::string steps;
    for (int i = 0; i < 11; ++i) {
        value.step();
        steps += value.Cells().back();
    }
    EXPECT_EQ(steps, "12345678901");
    while (value.Cursor() != 0) value.cursorLeft();
    for (const char* sign : {"-", "+", "-"}) {
        value.step();
        EXPECT_EQ(value.Cells().substr(0, 1), sign);
    }
    EXPECT_EQ(Read(value), "-00:00:01");
}

TEST(MaskedValue, CallsAnEmptyAddressNone) {
    MaskedValue value = With(kAddress, ZeroReads::None);
    for (const std::string_view text : {"None", "NONE", "none", "nOnE", "0.0.0.0", "000.000.000.000"}) {
        ASSERT_EQ(value.setValue("10.0.0.1"), EntryResult::Accepted);
        EXPECT_EQ(value.setValue(text), EntryResult::Accepted) << text;
        EXPECT_EQ(Read(value), "None") << text;
    }
    EXPECT_EQ(value.setValue("Nones"), EntryResult::DoesNotFit);
    EXPECT_EQ(value.setValue("none"), EntryResult::Accepted);
    EXPECT_EQ(value.Cells(), "  0.  0.  0.  0");
    value.cursorLeft();
    EXPECT_EQ(Read(value), "None") << "a leading zero is still none";
    value.step();
    EXPECT_EQ(Read(value), "0.0.0.10");
}

}  // namespace
