#include <array>

#include "tests/fuzz/target.h"
#include "localization/localization.h"

namespace {
constexpr std::uint32_t kSelections = 4;  // of languages, labels and symbols, one too many for most files
}

/// Reads a localisation file and looks texts up in all that it offers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PutOnBoard("/romfs/localization.dat", data, size);
    localizationClass& texts = kernelDispClass::getInstance();
    localizationClass::unload();
    localizationClass::load();
    for (std::uint32_t selection = 0; selection < kSelections; ++selection) {
        texts.setLanguage(selection);
        texts.setPhaseLabels(selection);
        texts.setMeasSymbols(selection);
        for (const char16_t* text : {u"", u"Voltage", u"Current", u"L1"}) static_cast<void>(texts.translate(text));
        std::array<char16_t, 8> cut;
        static_cast<void>(texts.translateInto("Voltage", cut));
    }
    return 0;
}
