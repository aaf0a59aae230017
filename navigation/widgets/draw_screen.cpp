#include "navigation/widgets/draw_screen.h"

#include <array>
#include <cassert>

#include "navigation/geometry.h"
#include "navigation/table_proofs.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::size_t kSchemes = 4;
constexpr std::size_t kKeyImages = static_cast<std::size_t>(KeyImage::Acknowledge) + 1;

/// Bitmap numbers of a soft key's picture: by scheme, and for each scheme by look. 0: none.
struct ImageRow {
    KeyImage image;
    std::array<std::array<std::uint16_t, 3>, kSchemes> byScheme;
};

// clang-format off
constexpr std::array<ImageRow, kKeyImages> kImages = {{
    {KeyImage::Up,          {{{236,  78, 201}, { 77,  78, 201}, {137,  78, 201}, { 79,  78, 201}}}},
    {KeyImage::Down,        {{{230,  68, 193}, { 67,  68, 193}, {117,  68, 193}, { 69,  68, 193}}}},
    {KeyImage::Parent,      {{{238, 126, 196}, {125, 126, 196}, {127, 126, 196}, {128, 126, 196}}}},
    {KeyImage::Detail,      {{{226,  65, 190}, { 64,  65, 190}, {  0,  65, 190}, { 66,  65, 190}}}},
    {KeyImage::Return,      {{{234,  75, 204}, { 74,  75, 204}, {  0,  75, 204}, { 76,  75, 204}}}},
    {KeyImage::OptionsMenu, {{{233,  72, 198}, { 71,  72, 198}, {  0,  72, 198}, { 73,  72, 198}}}},
    {KeyImage::Select,      {{{227,  94, 191}, { 93,  94, 191}, {114,  94, 191}, { 95,  94, 191}}}},
    {KeyImage::Back,        {{{229,  97, 192}, { 96,  97, 192}, {116,  97, 192}, { 92,  97, 192}}}},
    {KeyImage::Page,        {{{232, 107, 194}, {121, 107, 194}, {  0, 107, 194}, { 98, 107, 194}}}},
    {KeyImage::Left,        {{{237, 123, 195}, {122, 123, 195}, {188, 123, 195}, {124, 123, 195}}}},
    {KeyImage::Right,       {{{239, 130, 199}, {129, 130, 199}, {131, 130, 199}, {132, 130, 199}}}},
    {KeyImage::NextCell,    {{{  0,   0, 197}, {147,   0, 197}, {  0,   0, 197}, {148,   0, 197}}}},
    {KeyImage::NextLine,    {{{  0,   0, 202}, {138,   0, 202}, {  0,   0, 202}, {149,   0, 202}}}},
    {KeyImage::Edit,        {{{231, 119, 203}, {118, 119, 203}, {  0, 119, 203}, {120, 119, 203}}}},
    {KeyImage::Acknowledge, {{{242, 220, 219}, {218, 220, 219}, {  0, 220, 219}, {  0, 220, 219}}}},
}};
static_assert(StandInOrder(kImages, &ImageRow::image));

constexpr std::array<std::array<std::uint8_t, 3>, kSchemes> kColours = {{
    {85, 85, 87},
    {86, 0, 0},
    {89, 0, 0},
    {1, 0, 0},
}};
// clang-format on

constexpr std::uint16_t kWhite = 0xFFFF;

constexpr int kBandTop = Divided(kPanelHeight, 9.6);
constexpr int kBandHeight = Share(kPanelHeight, 0.125);
constexpr PegRect kBand = RectOf(0, kBandTop, kPanelWidth - 1, kBandTop + kBandHeight - 1);
static_assert(kBand == PegRect{0, 25, 319, 54});

constexpr int kLineInset = Share(kPanelWidth, 0.015625);
constexpr PegRect kKeyLine =
    RectOf(kLineInset, kSoftKeyLine, kPanelWidth - kLineInset, kSoftKeyLine + kLineThickness - 1);
static_assert(kKeyLine == PegRect{5, 214, 315, 215});

constexpr int kSeparatorTop = Divided(kPanelHeight, 1.1);
constexpr int kSeparatorBottom = kPanelHeight - kLineThickness;
constexpr int kFirstSeparator = Share(kPanelWidth, 0.25);
constexpr int kSecondSeparator = Share(kPanelWidth, 0.75) - kLineThickness;
static_assert(kSeparatorTop == 218 && kSeparatorBottom == 238 && kFirstSeparator == 80 && kSecondSeparator == 238);

constexpr PegRect Separator(int x) { return RectOf(x, kSeparatorTop, x + kLineThickness - 1, kSeparatorBottom); }

}  // namespace

std::uint32_t drawScreenClass::imageOfScheme(Scheme scheme, KeyImage image, KeyLook look) {
    const ImageRow& row = kImages[static_cast<std::size_t>(image)];
    return row.byScheme[static_cast<std::size_t>(scheme)][static_cast<std::size_t>(look)];
}

std::uint32_t drawScreenClass::colour(std::size_t index) const {
    const auto& colours = kColours[static_cast<std::size_t>(m_scheme)];
    assert(index < colours.size());
    return colours[index];
}

void drawScreenClass::Draw(const PegRect& rect) {
    const std::uint16_t accent = PegResources::GetColor(colour(0));
    toolkit.screen->Fill(rect, kWhite);
    toolkit.screen->Fill(kBand, accent);
    toolkit.screen->Fill(kKeyLine, accent);
    toolkit.screen->Fill(Separator(kFirstSeparator), accent);
    toolkit.screen->Fill(Separator(kSecondSeparator), accent);
}
