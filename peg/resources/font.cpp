#include "peg/resources/font.h"

#include <algorithm>

const PegFont* PageOf(const PegFont* font, char16_t code) {
    while (font != nullptr && !font->Holds(code)) font = font->next;
    return font;
}

int HeightOf(const PegFont* font) {
    int height = 0;
    for (; font != nullptr; font = font->next) height = std::max<int>(height, font->height);
    return height;
}

int WidthOf(std::u16string_view text, const PegFont* font) {
    int width = 0;
    for (const char16_t code : text) {
        if (const PegFont* page = PageOf(font, code)) width += page->Width(code);
    }
    return width;
}
