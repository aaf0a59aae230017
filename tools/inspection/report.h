#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

#include "tools/formats/localization_file.h"
#include "tools/formats/resource_file.h"

/// What a file holds, as text for people or as JSON for programs.
void PrintResources(std::ostream& out, const ResourceFile& file);
void PrintLocalization(std::ostream& out, const LocalizationFile& file);
[[nodiscard]] nlohmann::ordered_json DescribeResources(const ResourceFile& file);
[[nodiscard]] nlohmann::ordered_json DescribeLocalization(const LocalizationFile& file);
