#include "peg/resources/resources.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "peg/resources/builtin_fonts.h"
#include "peg/resources/builtin_strings.h"
#include "peg/resources/default_colors.h"
#include "peg/resources/resource_file.h"

namespace {

constexpr std::size_t kGrowth = 16;
constexpr std::uint32_t kLargestNumber = 0xFFFF;
constexpr std::size_t kFontTableStart = 48;
constexpr std::size_t kColorTableStart = 101;
constexpr std::size_t kBitmapTableStart = 80;
constexpr std::uint32_t kFirstFileString = 100;

constexpr std::uint16_t ScreenColor(unsigned red, unsigned green, unsigned blue) {
    return static_cast<std::uint16_t>((red >> 3) << 11 | (green >> 2) << 5 | blue >> 3);
}

/// Three bits of red and green and two of blue, spread over their full ranges.
constexpr std::array<std::uint16_t, 256> PlainIndexedColors() {
    std::array<std::uint16_t, 256> colors{};
    for (unsigned i = 0; i < colors.size(); ++i) {
        colors[i] = ScreenColor((i >> 5) * 255 / 7, (i >> 2 & 7) * 255 / 7, (i & 3) * 255 / 3);
    }
    return colors;
}
constexpr auto kPlainIndexedColors = PlainIndexedColors();

struct Tables {
    std::vector<const PegFont*> fonts;
    std::vector<std::uint16_t> colors;
    std::vector<const PegBitmap*> bitmaps;
    std::array<std::uint16_t, 256> indexedColors = kPlainIndexedColors;
    std::vector<std::unique_ptr<PegResourceSet>> sets;
    std::unique_ptr<StringTable> strings;  // numbers from kFirstFileString on
    std::uint32_t stringCount = 0;
    std::uint32_t language = 0;

    Tables() : fonts(kFontTableStart), colors(kColorTableStart), bitmaps(kBitmapTableStart) {
        for (const std::uint32_t slot : kSlotsOfFontA) fonts[slot] = &BuiltInFontA();
        for (const std::uint32_t slot : kSlotsOfFontB) fonts[slot] = &BuiltInFontB();
        std::copy(kDefaultColors.begin(), kDefaultColors.end(), colors.begin());
    }
};

Tables& TheTables() {
    static Tables tables;
    return tables;
}

PegResources::Listener theListener = nullptr;

void Tell(ResourceEvent event) {
    if (theListener != nullptr) theListener(event);
}

template <typename Element>
Element At(const std::vector<Element>& table, std::uint32_t number) {
    return number < table.size() ? table[number] : Element{};
}

template <typename Element>
void Store(std::vector<Element>& table, std::uint32_t number, Element element) {
    if (number > kLargestNumber) return;
    std::size_t size = table.size();
    while (size <= number) size += kGrowth;
    table.resize(size);
    table[number] = element;
}

/// Takes what a set owns out of the tables again.
void Withdraw(const PegResourceSet& set) {
    Tables& tables = TheTables();
    for (const auto& font : set.fonts) {
        std::replace(tables.fonts.begin(), tables.fonts.end(), static_cast<const PegFont*>(&font.pages.front()->page),
                     static_cast<const PegFont*>(nullptr));
    }
    for (const auto& bitmap : set.bitmaps) {
        std::replace(tables.bitmaps.begin(), tables.bitmaps.end(), static_cast<const PegBitmap*>(&bitmap->bitmap),
                     static_cast<const PegBitmap*>(nullptr));
    }
}

void FreeBitmap(const PegBitmap* bitmap) {
    for (const auto& set : TheTables().sets) {
        std::erase_if(set->bitmaps, [bitmap](const auto& loaded) { return &loaded->bitmap == bitmap; });
    }
}

}  // namespace

void PegResources::SetListener(Listener listener) { theListener = listener; }

int PegResources::LoadResourceFile(PegFile& file, int /*option*/) {
    ResourceFileContent content;
    const FileVerdict verdict = ReadResourceFile(file, content);
    if (verdict == FileVerdict::ForeignFormat) return 0;

    Tables& tables = TheTables();
    for (const auto& set : tables.sets) Withdraw(*set);
    tables.sets = std::move(content.sets);
    if (content.strings != nullptr) {
        tables.strings = std::move(content.strings);
        tables.stringCount = content.stringCount;
        Tell(ResourceEvent::Language);
    }
    return verdict == FileVerdict::Whole ? 1 : 0;
}

const PegResourceSet* PegResources::GetResourceSet(std::size_t index) {
    const auto& sets = TheTables().sets;
    return index < sets.size() ? sets[index].get() : nullptr;
}

void PegResources::InstallResourceSet(const PegResourceSet& set, bool replace) {
    for (const auto& font : set.fonts) SetFont(font.number, &font.pages.front()->page);
    // Two bitmaps of the set may carry one number, and the later one then frees the earlier.
    std::vector<const LoadedBitmap*> bitmaps;
    for (const auto& bitmap : set.bitmaps) bitmaps.push_back(bitmap.get());
    for (const LoadedBitmap* loaded : bitmaps) SetBitmap(loaded->number, &loaded->bitmap, replace);
    for (const auto& color : set.colors) SetColor(color.number, color.value);
    if (set.palette != nullptr) {
        std::transform(set.palette->begin(), set.palette->end(), TheTables().indexedColors.begin(),
                       [](const auto& rgb) { return ScreenColor(rgb[0], rgb[1], rgb[2]); });
    }
    Tell(ResourceEvent::Installed);
}

const PegFont* PegResources::GetFont(std::uint32_t number) { return At(TheTables().fonts, number); }

void PegResources::SetFont(std::uint32_t number, const PegFont* font) { Store(TheTables().fonts, number, font); }

const PegBitmap* PegResources::GetBitmap(std::uint32_t number) { return At(TheTables().bitmaps, number); }

void PegResources::SetBitmap(std::uint32_t number, const PegBitmap* bitmap, bool replace) {
    const PegBitmap* before = GetBitmap(number);
    Store(TheTables().bitmaps, number, bitmap);
    if (replace && before != nullptr && before != bitmap) FreeBitmap(before);
}

int PegResources::BitmapWidth(std::uint32_t number) {
    const PegBitmap* bitmap = GetBitmap(number);
    return bitmap != nullptr ? bitmap->width : 0;
}

int PegResources::BitmapHeight(std::uint32_t number) {
    const PegBitmap* bitmap = GetBitmap(number);
    return bitmap != nullptr ? bitmap->height : 0;
}

std::uint16_t PegResources::GetColor(std::uint32_t number) { return At(TheTables().colors, number); }

void PegResources::SetColor(std::uint32_t number, std::uint16_t value) { Store(TheTables().colors, number, value); }

const std::array<std::uint16_t, 256>& PegResources::IndexedColors() { return TheTables().indexedColors; }

const char16_t* PegResources::GetString(std::uint32_t number) {
    if (number == 0) return nullptr;
    if (number <= kBuiltInStrings.size()) return kBuiltInStrings[number - 1];
    const Tables& tables = TheTables();
    if (tables.strings == nullptr || number < kFirstFileString) return nullptr;
    const std::uint32_t language = tables.language < tables.strings->LanguageCount() ? tables.language : 0;
    return tables.strings->Find(language, number - kFirstFileString);
}

void PegResources::SetLanguage(std::uint32_t index) {
    TheTables().language = index;
    Tell(ResourceEvent::Language);
    Tell(ResourceEvent::Redraw);
}

std::size_t PegResources::FontTableSize() { return TheTables().fonts.size(); }

std::size_t PegResources::ColorTableSize() { return TheTables().colors.size(); }

std::size_t PegResources::BitmapTableSize() { return TheTables().bitmaps.size(); }

void PegResources::Reset() { TheTables() = Tables{}; }
