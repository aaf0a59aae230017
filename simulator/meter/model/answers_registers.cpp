#include "rda/records.h"
#include "simulator/meter/model/answers.h"
#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

constexpr std::uint32_t kNoChoice = 1;  // result word: the register is unknown or has no items

constexpr auto kYesNoItems = std::to_array<std::string_view>({"No", "Yes"});

Items ItemsOf(const Register* row) {
    if (row == nullptr) return {};
    return row->kind == Kind::YesNo ? Items(kYesNoItems) : row->items;
}

/// What both enumeration records begin with. @return the register's items
template <typename Record>
Items PutEnumerationHead(const Meter& meter, std::uint32_t id, Record& record) {
    const Register* row = FindRegister(id);
    const Items items = ItemsOf(row);
    const auto text = meter.Read(id);
    record.result.Set(items.empty() ? kNoChoice : 0);
    PutText(record.text, items.empty() ? texts::kNoChoices : row->label);
    const auto held = text ? std::ranges::find(items, std::string_view(text->value)) : items.end();
    record.current.Set(held != items.end() ? static_cast<std::uint32_t>(held - items.begin()) : 0);
    return items;
}

}  // namespace

RegisterValue RegisterRecord(const Meter& meter, std::uint32_t id) {
    RegisterValue record{};
    const auto text = meter.Read(id);
    if (!text) return record;
    PutText(record.description, text->label);
    PutText(record.label, text->label);
    PutText(record.value, text->value);
    PutText(record.unit, text->unit);
    if (text->when) {
        const Clock& clock = meter.GetClock();
        PutText(record.date, clock.DateText(*text->when));
        PutText(record.time, clock.TimeText(*text->when));
    }
    return record;
}

void GetEnumerationValue(Meter& meter, const Request& request, std::span<std::byte> reply) {
    EnumerationValue record{};
    PutEnumerationHead(meter, request.words[0], record);
    Put(reply, record);
}

void GetEnumerationData(Meter& meter, const Request& request, std::span<std::byte> reply) {
    EnumerationData record{};
    const Items items = PutEnumerationHead(meter, request.words[0], record);
    record.count.Set(static_cast<std::uint32_t>(items.size()));
    for (std::size_t i = 0; i < items.size(); ++i) PutText(record.items[i], items[i]);
    Put(reply, record);
}

void GetRegisterValue(Meter& meter, const Request& request, std::span<std::byte> reply) {
    Put(reply, RegisterRecord(meter, request.words[0]));
}

void SetRegisterValue(Meter& meter, const Request& request, std::span<std::byte> reply) {
    RegisterWriteResult record{};
    const auto refusal = meter.WriteFromPanel(request.words[0], request.texts[0]);
    record.result.Set(refusal ? 1 : 0);
    PutText(record.text, refusal.value_or(texts::kAccepted));
    Put(reply, record);
}

template <PageSet Set>
void GetPage(Meter& meter, const Request& request, std::span<std::byte> reply) {
    CustomScreenData record{};
    const auto pages = PagesOf(Set);
    const std::size_t index = meter.CursorOf(Set).Follow(request.words[0], pages.size());
    const Page& page = pages[index];
    record.isFirstPage.Set(index == 0 ? 1 : 0);
    record.isLastPage.Set(index + 1 == pages.size() ? 1 : 0);
    PutText(record.title, page.title);
    record.count.Set(static_cast<std::uint32_t>(page.registers.size()));
    for (std::size_t i = 0; i < page.registers.size(); ++i)
        record.parameters[i] = RegisterRecord(meter, page.registers[i]);
    Put(reply, record);
}

template void GetPage<PageSet::Normal>(Meter& meter, const Request& request, std::span<std::byte> reply);
template void GetPage<PageSet::Custom>(Meter& meter, const Request& request, std::span<std::byte> reply);
template void GetPage<PageSet::Test>(Meter& meter, const Request& request, std::span<std::byte> reply);

}  // namespace meter
