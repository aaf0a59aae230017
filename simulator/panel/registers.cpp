#include "simulator/panel/registers.h"

#include <nlohmann/json.hpp>

#include "simulator/meter/model/catalogue.h"

namespace panel {

std::string RegistersJson() {
    nlohmann::json list = nlohmann::json::array();
    for (const meter::Register& row : meter::Catalogue()) {
        nlohmann::json entry = {
            {"id", row.id},
            {"label", row.label},
            {"settable", row.kind != meter::Kind::Reading && row.kind != meter::Kind::ReadOnlyText}};
        if (!row.items.empty()) entry["items"] = row.items;
        list.push_back(std::move(entry));
    }
    return list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace panel
