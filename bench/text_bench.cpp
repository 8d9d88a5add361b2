// How long breaking, loading and copying take for texts of 1 and of 10 MB, and the ratio of the two times. It is about
// 10 if the time is proportional to the size of the text.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>

#include "app/run_options.h"
#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "files/encoded_text_file.h"
#include "files/license_text_set.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"

namespace {

constexpr int64_t megabyte = 1 << 20;

struct Shape {
    const char* name;
    const char* locale;
    const char16_t* pattern;
};

constexpr Shape shapes[]{
    {"prose", "en_US.UTF-8", u"The licensee may copy the Program, provided that every copy bears this notice.\n"},
    {"one_word", "en_US.UTF-8", u"word"},
    {"newlines", "en_US.UTF-8", u"\n"},
    {"ideographs", "ja_JP.UTF-8", u"使用許諾契約"},
    {"one_wide_word", "ja_JP.UTF-8", u"соглашение"},
};

/// A text of `bytes` bytes of UTF-16.
icu::UnicodeString textOf(const Shape& shape, int64_t bytes) {
    const icu::UnicodeString pattern(shape.pattern);
    icu::UnicodeString text;
    while (text.length() < bytes / 2) text.append(pattern);
    text.truncate(static_cast<int32_t>(bytes / 2));
    return text;
}

void breakShape(benchmark::State& state, const Shape& shape, int32_t width) {
    setenv("LC_ALL", shape.locale, 1);
    zev::adoptEnvironmentLocale();
    zev::RunContext context = zev::createRunContext(".", ".", zev::defaultLanguageSet);
    const zev::LicenseDialog dialog(context);
    const icu::UnicodeString text = textOf(shape, state.range(0) * megabyte);
    for (auto _ : state) benchmark::DoNotOptimize(zev::breakText(dialog, text, width));
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
}

/// A licence directory with an English agreement of prose.
std::string licenseDirectory(int64_t bytes) {
    const auto directory = std::filesystem::temp_directory_path() / ("zev_bench_" + std::to_string(getpid()));
    std::filesystem::create_directories(directory);
    const icu::UnicodeString text = textOf(shapes[0], bytes);
    std::ofstream file(directory / "LA_en", std::ios::binary);
    file << "\xFF\xFE";
    file.write(reinterpret_cast<const char*>(text.getBuffer()), static_cast<std::streamsize>(text.length()) * 2);
    return directory;
}

void load(benchmark::State& state) {
    setenv("LC_ALL", "en_US.UTF-8", 1);
    zev::adoptEnvironmentLocale();
    const zev::RunContext context =
        zev::createRunContext(licenseDirectory(state.range(0) * megabyte), ".", zev::defaultLanguageSet);
    icu::UnicodeString text;
    for (auto _ : state) {
        if (!zev::readLicenseText(context, text)) state.SkipWithError("cannot load");
    }
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
    std::filesystem::remove_all(context.licenseDir);
}

void copy(benchmark::State& state) {
    const std::string directory = licenseDirectory(state.range(0) * megabyte);
    const std::string source = directory + "/LA_en";
    const std::string target = directory + "/copy";
    for (auto _ : state) {
        if (!zev::copyFileConverted(source.c_str(), "UTF-16", target.c_str(), "UTF-8"))
            state.SkipWithError("cannot copy");
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * megabyte);
    std::filesystem::remove_all(directory);
}

/// The usual table, with the ratio after the larger size of each benchmark.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const std::string& name = run.run_name.function_name;
            const auto [small, isFirst] = small_.try_emplace(name, run.GetAdjustedRealTime());
            if (!isFirst) std::cout << name << ": 10 MB / 1 MB = " << run.GetAdjustedRealTime() / small->second << '\n';
        }
    }

private:
    std::map<std::string, double> small_;
};

}  // namespace

int main(int argc, char** argv) {
    const auto withSizes = [](auto* bench) { bench->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond); };
    for (const Shape& shape : shapes) {
        for (const int32_t width : {80, 1'000'000}) {
            const std::string name = std::string("break_") + shape.name + "_at_" + std::to_string(width);
            withSizes(benchmark::RegisterBenchmark(name.c_str(), breakShape, shape, width));
        }
    }
    withSizes(benchmark::RegisterBenchmark("load", load));
    withSizes(benchmark::RegisterBenchmark("copy", copy));

    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
}
