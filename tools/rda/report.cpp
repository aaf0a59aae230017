#include "tools/rda/report.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <vector>

namespace rda_command {
namespace {

using namespace meter;

struct Line {
    std::string name;
    std::string value;
};

std::string Scalar(const Json& value) { return value.is_string() ? value.get<std::string>() : value.dump(); }

void Flatten(const Json& value, const std::string& name, std::vector<Line>& lines) {
    if (value.is_object()) {
        for (const auto& [key, part] : value.items()) Flatten(part, name.empty() ? key : name + "." + key, lines);
    } else if (value.is_array() && std::ranges::none_of(value, [](const Json& part) { return part.is_number(); })) {
        for (std::size_t i = 0; i < value.size(); ++i) Flatten(value[i], name + "[" + std::to_string(i) + "]", lines);
    } else if (value.is_array()) {
        std::string numbers;
        for (const Json& part : value) numbers += (numbers.empty() ? "" : " ") + Scalar(part);
        lines.push_back({name, numbers});
    } else {
        lines.push_back({name, Scalar(value)});
    }
}

std::string Table(const std::vector<Line>& lines) {
    std::size_t width = 0;
    for (const Line& line : lines) width = std::max(width, line.name.size());
    std::string text;
    for (const Line& line : lines) {
        text += line.name;
        if (!line.value.empty()) text += std::string(width - line.name.size() + 2, ' ') + line.value;
        text += '\n';
    }
    return text;
}

std::string_view TypeName(ArgumentType type) {
    switch (type) {
        case ArgumentType::Number: return "u32";
        case ArgumentType::Decimal: return "f32";
        case ArgumentType::Text: return "text";
    }
    return "";
}

std::string Usage(const Signature& call) {
    std::string usage(call.name);
    for (const Argument& argument : call.Arguments()) {
        usage += ' ';
        usage += argument.name;
    }
    return usage;
}

std::string ReplyLine(const Signature& call) {
    const ReplyForm& reply = call.reply;
    switch (reply.shape) {
        case ReplyShape::None: return "none";
        case ReplyShape::Number: return std::string(reply.name) + ", u32, 4 bytes";
        case ReplyShape::Text:
            return std::string(reply.name) + ", text, as many bytes as " +
                   std::string(call.Arguments()[reply.countArgument].name) + " says";
        case ReplyShape::Record:
            return std::string(reply.record->name) + ", " + std::to_string(reply.record->size) + " bytes";
        case ReplyShape::Records:
            return std::string(reply.record->name) + ", " + std::to_string(reply.record->size) +
                   " bytes each, as many as " + std::string(call.Arguments()[reply.countArgument].name) + " says";
    }
    return "";
}

std::string TypeOf(const Field& field) {
    std::string type(field.record != nullptr ? field.record->name : FieldTypeName(field.type));
    if (field.type == FieldType::Text) type += "(" + std::to_string(field.size) + ")";
    if (field.count > 1) type += "[" + std::to_string(field.count) + "]";
    return type;
}

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
    return text;
}

bool EndsWithWord(std::string_view name, std::string_view word) {
    return name.size() > word.size() && name.ends_with(word) && name[name.size() - word.size() - 1] == '_';
}

}  // namespace

std::string TextOf(const Json& reply) {
    std::vector<Line> lines;
    Flatten(reply, "", lines);
    return Table(lines);
}

std::string ListOf(std::span<const Signature> calls) {
    std::vector<Line> lines;
    for (const Signature& call : calls) lines.push_back({Usage(call), std::string(call.purpose)});
    return Table(lines);
}

Json ListAsJson(std::span<const Signature> calls) {
    Json list = Json::array();
    for (const Signature& call : calls) list.push_back(DescriptionAsJson(call));
    return list;
}

std::string DescriptionOf(const Signature& call) {
    std::string text = Usage(call) + "\n  " + std::string(call.purpose) + "\n";
    for (const Argument& argument : call.Arguments())
        text += "  argument  " + std::string(argument.name) + ", " + std::string(TypeName(argument.type)) + "\n";
    text += "  reply     " + ReplyLine(call) + "\n";
    if (call.reply.record != nullptr) text += "\n" + DescriptionOf(*call.reply.record);
    return text;
}

std::string DescriptionOf(const RecordLayout& record) {
    std::string text =
        std::string(record.name) + ", " + std::to_string(record.size) + " bytes\n  offset  size  field\n";
    std::vector<const RecordLayout*> parts;
    for (const Field& field : record.fields) {
        text += "  " + Padded(std::to_string(field.offset), 8) + Padded(std::to_string(field.size * field.count), 6) +
                Padded(std::string(field.name), 16) + TypeOf(field) + "\n";
        if (field.record != nullptr && std::ranges::find(parts, field.record) == parts.end())
            parts.push_back(field.record);
    }
    for (const RecordLayout* part : parts) text += "\n" + DescriptionOf(*part);
    return text;
}

Json DescriptionAsJson(const Signature& call) {
    Json description = {{"name", call.name}, {"purpose", call.purpose}, {"arguments", Json::array()}};
    for (const Argument& argument : call.Arguments())
        description["arguments"].push_back({{"name", argument.name}, {"type", TypeName(argument.type)}});
    description["reply"] = ReplyLine(call);
    if (call.reply.record != nullptr) description["record"] = DescriptionAsJson(*call.reply.record);
    return description;
}

Json DescriptionAsJson(const RecordLayout& record) {
    Json description = {{"name", record.name}, {"size", record.size}, {"fields", Json::array()}};
    for (const Field& field : record.fields) {
        description["fields"].push_back({{"name", field.name},
                                         {"type", FieldTypeName(field.type)},
                                         {"offset", field.offset},
                                         {"size", field.size},
                                         {"count", field.count}});
        if (field.record != nullptr) description["fields"].back()["record"] = field.record->name;
    }
    return description;
}

std::string BashCompletion() {
    const auto names = [](std::span<const Signature> calls) {
        std::string words;
        for (const Signature& call : calls) words += " " + std::string(call.name);
        return words.substr(1);
    };
    std::string records;
    for (const RecordLayout* record : RecordLayouts()) records += " " + std::string(record->name);
    return "# bash completion of rda: source <(rda completion bash)\n"
           "_rda() {\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} choices=\n"
           "    local operations='" +
           names(MeterOperations()) +
           "'\n"
           "    local commands='" +
           names(DisplayCommands()) +
           "'\n"
           "    local records='" +
           records.substr(1) +
           "'\n"
           "    if [[ $word == -* ]]; then\n"
           "        choices='--help --host --port --json --timeout --interval --count'\n"
           "    elif [[ $COMP_CWORD == 1 ]]; then\n"
           "        choices='list describe call watch display completion'\n"
           "    else\n"
           "        case ${COMP_WORDS[1]} in\n"
           "            call | watch) choices=$operations ;;\n"
           "            display) choices=$commands ;;\n"
           "            describe) choices=\"$operations $commands $records\" ;;\n"
           "            completion) choices=bash ;;\n"
           "        esac\n"
           "    fi\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$choices\" -- \"$word\")\n"
           "}\n"
           "complete -F _rda rda\n";
}

const Signature& Named(std::span<const Signature> calls, std::string_view name) {
    const Signature* found = nullptr;
    std::string near;
    for (const Signature& call : calls) {
        if (call.name == name) return call;
        if (EndsWithWord(call.name, name)) {
            near += " " + std::string(call.name);
            found = found == nullptr ? &call : nullptr;
        }
    }
    if (found != nullptr && near == " " + std::string(found->name)) return *found;
    const auto sameLetter = [](char one, char other) { return std::tolower(one) == std::tolower(other); };
    if (near.empty())
        for (const Signature& call : calls)
            if (std::search(call.name.begin(), call.name.end(), name.begin(), name.end(), sameLetter) !=
                call.name.end())
                near += " " + std::string(call.name);
    throw std::invalid_argument("there is no call \"" + std::string(name) + "\"" +
                                (near.empty() ? "; rda list names them all" : "; perhaps one of:" + near));
}

}  // namespace rda_command
