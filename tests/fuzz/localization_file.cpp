#include <array>

#include "localization/localization.h"
#include "tests/fuzz/memory_board.h"
#include "tests/fuzz/target.h"

const MemoryBound kMemoryBound = {.bytes = 256 * 1024, .perByte = 16};

void Prepare() {}

/// Reads a localisation file and looks texts up in all that it offers.
void Take(std::span<const std::uint8_t> input) {
    constexpr std::uint32_t kSelections = 4;  // of languages, labels and symbols, one too many for most files
    PutOnBoard("/romfs/localization.dat", input);
    localizationClass& texts = kernelDispClass::getInstance();
    localizationClass::load();
    for (std::uint32_t selection = 0; selection < kSelections; ++selection) {
        texts.setLanguage(selection);
        texts.setPhaseLabels(selection);
        texts.setMeasSymbols(selection);
        for (const char16_t* text : {u"", u"Voltage", u"Current", u"L1"}) static_cast<void>(texts.translate(text));
        std::array<char16_t, 8> cut;
        static_cast<void>(texts.translateInto("Voltage", cut));
    }
    localizationClass::unload();
}
