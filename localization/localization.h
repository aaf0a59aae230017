#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// Translates base-language texts into the selected language, with the selected phase labels and measurement symbols.
///
/// The texts come from "/romfs/localization.dat"; all objects share them and one selection. Without the file, or for a
/// text that is not in it, the base text itself is shown. Lookups allocate nothing. Toolkit task only.
class localizationClass {
public:
    static localizationClass& getInstance();

    /// Reads the file, unless its texts are there already.
    static void load();

    /// The text to show; lives as long as the process when it is not `text` itself. Null only for null.
    const char16_t* translate(const char16_t* text, std::uint32_t language);
    const char16_t* translate(const char16_t* text);

    /// Widens an 8-bit text of at most 250 characters, translates it and copies what fits into `out`, which is
    /// terminated and zero behind the text. @return 1 when there was a translation, 0 when `out` has the base text
    std::uint32_t translateInto(std::string_view text, std::span<char16_t> out);
    std::uint32_t translateInto(std::string_view text, std::span<char16_t> out, std::uint32_t language);

    /// Change one part of the selection; nothing for a value that is selected already or not in the file.
    void setLanguage(std::uint32_t language);
    void setPhaseLabels(std::uint32_t set);
    void setMeasSymbols(std::uint32_t set);

    /// Brings the selection up to date before a lookup.
    virtual void updateSettings() {}

    /// Forgets the texts and the selection, as at the start of the process.
    static void unload();

protected:
    localizationClass() = default;
    ~localizationClass() = default;
};

/// The localisation of the screens: its selection follows the display configuration.
class displayClass : public localizationClass {
public:
    static displayClass& getInstance();
    void updateSettings() override;
};

/// A localisation whose selection follows nothing.
class kernelDispClass : public localizationClass {
public:
    static kernelDispClass& getInstance();
    void updateSettings() override {}
};

/// Widens 8-bit text into UTF-16: cut to fit, terminated, and zero behind it.
void WidenInto(std::string_view text, std::span<char16_t> out);

/// The toolkit string of that number in the selected language: what a text with a number means on a screen.
const char16_t* LocalizedString(std::uint32_t number);
