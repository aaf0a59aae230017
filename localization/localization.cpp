#include "localization/localization.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include "localization/display_config.h"
#include "localization/localization_file.h"
#include "peg/core/message_queue.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr const char* kFile = "/romfs/localization.dat";
constexpr std::size_t kWidestText = 251;  // with its terminator

/// Finds the number of a base text.
class ReverseHash {
public:
    /// Enters every base text; of equal ones the lowest number is found.
    void Build(const LocalizationContent& content);
    void Clear() { m_slots.reset(); }

    /// @return false when the text is not there
    bool Find(std::u16string_view text, std::uint32_t& number) const;

private:
    static constexpr std::size_t kSlots = 8192;
    struct Slot {
        const char16_t* text;
        std::uint32_t number;
    };

    static std::size_t SlotOf(std::u16string_view text) {
        std::uint32_t hash = 5381;
        for (const char16_t unit : text) hash = hash * 33 + unit;
        return hash % kSlots;
    }
    static std::size_t Following(std::size_t slot) { return (slot + 1) % kSlots; }

    std::unique_ptr<Slot[]> m_slots;
};

void ReverseHash::Build(const LocalizationContent& content) {
    m_slots.reset(new (std::nothrow) Slot[kSlots]());
    if (m_slots == nullptr) return;
    std::size_t room = kSlots - 1;  // one slot stays empty, so that every search ends
    for (std::uint32_t number = 0; number < content.stringCount && room > 0; ++number) {
        const char16_t* text = content.strings.Find(0, number);
        if (text == nullptr) continue;
        std::size_t slot = SlotOf(text);
        while (m_slots[slot].text != nullptr && std::u16string_view(m_slots[slot].text) != text) slot = Following(slot);
        if (m_slots[slot].text != nullptr) continue;
        m_slots[slot] = {text, number};
        --room;
    }
}

bool ReverseHash::Find(std::u16string_view text, std::uint32_t& number) const {
    if (m_slots == nullptr) return false;
    for (std::size_t slot = SlotOf(text); m_slots[slot].text != nullptr; slot = Following(slot)) {
        if (text != m_slots[slot].text) continue;
        number = m_slots[slot].number;
        return true;
    }
    return false;
}

struct Selection {
    std::uint32_t language = 0;
    std::uint32_t phaseLabelSet = 0;
    std::uint32_t measSymbolSet = 0;

    friend bool operator==(const Selection&, const Selection&) = default;
};

struct Data {
    LocalizationContent content;
    ReverseHash numbers;
    Selection selection;
    bool loaded = false;
};

Data& TheData() {
    static Data data;
    return data;
}

void Select(const Selection& selection) {
    if (selection == TheData().selection) return;
    TheData().selection = selection;
    PegResources::SetLanguage(selection.language);
}

}  // namespace

localizationClass& localizationClass::getInstance() {
    static localizationClass instance;
    load();
    return instance;
}

displayClass& displayClass::getInstance() {
    static displayClass instance;
    load();
    return instance;
}

kernelDispClass& kernelDispClass::getInstance() {
    static kernelDispClass instance;
    load();
    return instance;
}

void localizationClass::load() {
    Data& data = TheData();
    if (data.loaded) return;
    data.loaded = true;
    PegFile file;
    if (!file.Open(kFile)) return;
    ReadLocalizationFile(file, data.content);
    data.numbers.Build(data.content);
    if (toolkit.queue == nullptr) return;
    PegMessage message;
    message.target = toolkit.manager;
    message.type = MSG_LANGUAGE;
    toolkit.queue->Push(message);
}

void localizationClass::unload() { TheData() = Data{}; }

const char16_t* localizationClass::translate(const char16_t* text, std::uint32_t language) {
    updateSettings();
    if (text == nullptr) return text;
    const Data& data = TheData();
    std::uint32_t number = 0;
    if (!data.numbers.Find(text, number)) return text;
    number = data.content.phaseLabels.Replace(number, data.selection.phaseLabelSet);
    number = data.content.measSymbols.Replace(number, data.selection.measSymbolSet);
    const char16_t* translated = data.content.strings.Find(language, number);
    return translated != nullptr ? translated : text;
}

const char16_t* localizationClass::translate(const char16_t* text) {
    // A language that this lookup is the first to notice counts from the next one on: the redraw asks again.
    return translate(text, TheData().selection.language);
}

std::uint32_t localizationClass::translateInto(std::string_view text, std::span<char16_t> out) {
    return translateInto(text, out, TheData().selection.language);
}

std::uint32_t localizationClass::translateInto(std::string_view text, std::span<char16_t> out, std::uint32_t language) {
    std::array<char16_t, kWidestText> widened;
    WidenInto(text, widened);
    const char16_t* translated = translate(widened.data(), language);
    std::fill(out.begin(), out.end(), u'\0');
    for (std::size_t i = 0; i + 1 < out.size() && translated[i] != 0; ++i) out[i] = translated[i];
    return translated != widened.data() ? 1 : 0;
}

void localizationClass::setLanguage(std::uint32_t language) {
    Selection selection = TheData().selection;
    if (language < TheData().content.strings.LanguageCount()) selection.language = language;
    Select(selection);
}

void localizationClass::setPhaseLabels(std::uint32_t set) {
    Selection selection = TheData().selection;
    if (set < TheData().content.phaseLabels.rows) selection.phaseLabelSet = set;
    Select(selection);
}

void localizationClass::setMeasSymbols(std::uint32_t set) {
    Selection selection = TheData().selection;
    if (set < TheData().content.measSymbols.rows) selection.measSymbolSet = set;
    Select(selection);
}

void displayClass::updateSettings() {
    const LocalizationContent& content = TheData().content;
    const auto within = [](std::uint32_t index, std::uint32_t count) { return index < count ? index : 0; };
    Select({within(DISPCFG_getLanguage(), content.strings.LanguageCount()),
            within(DISPCFG_getPhaseLabels(), content.phaseLabels.rows),
            within(DISPCFG_getMeasSymbols(), content.measSymbols.rows)});
}

void WidenInto(std::string_view text, std::span<char16_t> out) {
    std::fill(out.begin(), out.end(), u'\0');
    for (std::size_t i = 0; i + 1 < out.size() && i < text.size(); ++i) out[i] = static_cast<unsigned char>(text[i]);
}

const char16_t* LocalizedString(std::uint32_t number) {
    return displayClass::getInstance().translate(PegResources::GetString(number));
}
