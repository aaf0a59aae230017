#include "tools/catalogue/po_file.h"

#include <gettext-po.h>

#include <charconv>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string_view>

#include "tools/formats/source_error.h"
#include "tools/formats/utf.h"

namespace {

constexpr std::size_t kLongestText = 250;  // characters of a base text that the panel looks up
constexpr std::uint32_t kLargestNumber = 0xFFFE;

// The library calls these while a file is read. It expects that a fatal error does not return; errors of the file's
// syntax do, and the first of them is what the person wants to see.
struct Complaint {
    int line = 0;
    std::string text;
};
thread_local Complaint complaint;

void Keep(std::size_t line, const char* text) {
    if (!complaint.text.empty()) return;
    complaint = {line == static_cast<std::size_t>(-1) ? 0 : static_cast<int>(line), text};
    while (complaint.text.ends_with('\n')) complaint.text.pop_back();
}

void OnError(int severity, po_message_t, const char*, std::size_t line, std::size_t, int, const char* text) {
    if (severity != PO_SEVERITY_WARNING) Keep(line, text);
}

void OnErrors(int severity, po_message_t first, const char* file, std::size_t line, std::size_t column, int multiline,
              const char* text, po_message_t, const char*, std::size_t, std::size_t, int, const char*) {
    OnError(severity, first, file, line, column, multiline, text);
}

struct FreeFile {
    void operator()(po_file_t file) const { po_file_free(file); }
};
struct FreeIterator {
    void operator()(po_message_iterator_t iterator) const { po_message_iterator_free(iterator); }
};
using FileHandle = std::unique_ptr<std::remove_pointer_t<po_file_t>, FreeFile>;
using IteratorHandle = std::unique_ptr<std::remove_pointer_t<po_message_iterator_t>, FreeIterator>;

class Reader {
public:
    explicit Reader(const std::filesystem::path& path) { m_result.path = path.string(); }

    PoFile Read() {
        const FileHandle file = Open();
        const IteratorHandle messages{po_message_iterator(file.get(), nullptr)};
        ReadLanguage(file.get());
        while (po_message_t message = po_next_message(messages.get())) Add(message);
        return std::move(m_result);
    }

private:
    FileHandle Open() const {
        if (!std::filesystem::is_regular_file(m_result.path)) throw SourceError(m_result.path, "cannot be read");
        complaint = {};
        const po_xerror_handler handler{OnError, OnErrors};
        FileHandle file{po_file_read(m_result.path.c_str(), &handler)};
        if (!complaint.text.empty()) throw SourceError(m_result.path, complaint.line, complaint.text);
        if (!file) throw SourceError(m_result.path, "cannot be read");
        return file;
    }

    void ReadLanguage(po_file_t file) {
        const char* header = po_file_domain_header(file, nullptr);
        char* language = header != nullptr ? po_header_field(header, "Language") : nullptr;
        if (language != nullptr) m_result.language = language;
        std::free(language);
        if (m_result.language.empty()) throw SourceError(m_result.path, 1, "the header names no Language");
    }

    void Add(po_message_t message) {
        if (po_message_is_obsolete(message)) return;
        const std::string_view base = po_message_msgid(message);
        if (base.empty()) return;  // the header
        const std::uint32_t number = NumberOf(message);
        const bool translated = !po_message_is_fuzzy(message);
        const auto [place, fresh] = m_result.messages.try_emplace(
            number, PoFile::Message{.base = Checked(number, base),
                                    .translation = translated ? Checked(number, po_message_msgstr(message)) : u"",
                                    .kind = {},
                                    .comments = {}});
        if (!fresh) Fail(Named(number) + " stands twice");
        std::istringstream comments(po_message_extracted_comments(message));
        std::getline(comments, place->second.kind);
        for (std::string line; std::getline(comments, line);) place->second.comments.push_back(line);
    }

    static std::string Quoted(std::string_view text) { return std::string(1, '"').append(text).append(1, '"'); }
    static std::string Named(std::uint32_t number) { return "string " + std::to_string(number); }

    std::uint32_t NumberOf(po_message_t message) const {
        const char* context = po_message_msgctxt(message);
        if (context == nullptr) Fail(Quoted(po_message_msgid(message)) + " has no number (msgctxt)");
        const std::string_view digits = context;
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(digits.begin(), digits.end(), number);
        if (error != std::errc{} || end != digits.end() || number > kLargestNumber) {
            Fail(Quoted(digits) + " is no string number");
        }
        return number;
    }

    std::u16string Checked(std::uint32_t number, std::string_view utf8) const {
        const auto text = ToUtf16(utf8);
        if (!text) Fail(Named(number) + " is not UTF-8");
        if (text->size() > kLongestText) {
            Fail(Named(number) + " is longer than " + std::to_string(kLongestText) + " characters");
        }
        return *text;
    }

    [[noreturn]] void Fail(const std::string& what) const { throw SourceError(m_result.path, what); }

    PoFile m_result;
};

}  // namespace

PoFile ReadPoFile(const std::filesystem::path& path) { return Reader(path).Read(); }
