#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>

#include "platform/panel.h"
#include "simulator/bench/png_file.h"
#include "tools/formats/program.h"
#include "tools/gallery/page.h"
#include "tools/gallery/pictures.h"
#include "tools/gallery/readme_picture.h"

namespace {

const std::array<GalleryLanguage, 8> kLanguages = {{{"en", "English", 0, false},
                                                    {"de", "Deutsch", 1, false},
                                                    {"fr", "Français", 2, false},
                                                    {"es", "Español", 3, false},
                                                    {"it", "Italiano", 4, false},
                                                    {"ru", "Русский", 5, false},
                                                    {"long", "40 % longer", 1, true},
                                                    {"numbers", "string numbers", 2, true}}};

struct Options {
    std::filesystem::path out = "gallery";
    std::vector<std::string> languages = {"en", "de", "fr", "es", "it", "ru"};
    std::filesystem::path readme;
    bool check = false;
};

const GalleryLanguage& Find(const std::string& code) {
    const auto found = std::ranges::find(kLanguages, code, &GalleryLanguage::code);
    if (found == kLanguages.end()) throw std::runtime_error("there is no language \"" + code + "\"");
    return *found;
}

std::ofstream Create(const std::filesystem::path& path) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    return file;
}

std::filesystem::path CaptionsFile(const Options& options, const GalleryLanguage& language) {
    return options.out / language.code / "captions.txt";
}

/// The pictures of one language and what they are called, as files.
void WriteLanguage(const Options& options, const GalleryLanguage& language) {
    std::ofstream captions = Create(CaptionsFile(options, language));
    for (const PanelPicture& picture : TakePictures(language.number, language.ofTests)) {
        const std::filesystem::path path = options.out / language.code / (picture.name + ".png");
        if (!WritePngFile(path, Expand(picture.pixels), kPanelWidth, kPanelHeight)) {
            throw std::runtime_error("cannot write " + path.string());
        }
        captions << picture.name << '\t' << picture.family << '\t' << picture.title << '\n';
    }
}

std::vector<Caption> ReadCaptions(const Options& options, const GalleryLanguage& language) {
    std::vector<Caption> captions;
    std::ifstream file(CaptionsFile(options, language));
    for (Caption caption; std::getline(file, caption.name, '\t') && std::getline(file, caption.family, '\t') &&
                          std::getline(file, caption.title);) {
        captions.push_back(caption);
    }
    return captions;
}

/// Runs a piece of work in a process of its own, as the display's singletons ask for.
template <typename Work>
pid_t Start(Work work) {
    std::cout.flush();
    const pid_t child = fork();
    if (child != 0) return child;
    try {
        work();
        std::_Exit(0);
    } catch (const std::exception& error) {
        std::cerr << "panel-gallery: " << error.what() << '\n';
        std::_Exit(1);
    }
}

void Await(pid_t child) {
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0) throw std::runtime_error("a language was not finished");
}

void WriteGallery(const Options& options) {
    std::vector<LanguageCaptions> all;
    for (const std::string& code : options.languages) all.push_back({Find(code), {}});
    for (const LanguageCaptions& one : all) std::filesystem::remove_all(options.out / one.language.code);
    std::vector<pid_t> running;
    for (const LanguageCaptions& one : all) {
        running.push_back(Start([&] { WriteLanguage(options, one.language); }));
    }
    for (const pid_t child : running) Await(child);
    std::size_t pictures = 0;
    for (LanguageCaptions& one : all) {
        one.captions = ReadCaptions(options, one.language);
        pictures += one.captions.size();
    }
    Create(options.out / "index.html") << GalleryPage(options.out, all);
    std::cout << pictures << " pictures, languages: " << all.size() << "; " << (options.out / "index.html").string()
              << '\n';
}

void Run(const Options& options) {
    if (options.readme.empty()) return WriteGallery(options);
    const std::vector<PanelPicture> walk = TakePictures(0, false);
    if (!options.check) return WriteReadmePicture(options.readme, walk);
    if (!IsReadmePicture(options.readme, walk)) {
        throw std::runtime_error(options.readme.string() + ": the panel looks otherwise; ./gallery --readme renews it");
    }
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Takes a picture of everything that the panel shows, in every language.", "panel-gallery");
    app.add_option("--out", options.out, "folder of the page");
    app.add_option("--language", options.languages, "en, de, fr, es, it, ru; of tests: long, numbers")->delimiter(',');
    app.add_option("--readme", options.readme, "write only this picture of some screens");
    app.add_flag("--check", options.check, "write no picture, fail when that file shows another one");
    return RunProgram(app, argc, argv, [&] { Run(options); });
}
