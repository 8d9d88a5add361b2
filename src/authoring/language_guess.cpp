#include "authoring/language_guess.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "authoring/language_models.h"
#include "console/code_page_loss.h"

extern "C" {
#include <libexttextcat/common.h>
#include <libexttextcat/fingerprint.h>
}

namespace zev {

namespace {

constexpr int letterGroups = 400;      ///< that the library's models hold
constexpr int32_t shortestText = 400;  ///< code units; below, the comparison is a toss-up
constexpr double clearly = 1.05;       ///< times as far from the one language as from the other
constexpr int noLimit = 1 << 30;       ///< of a comparison that is not to be given up early

using Fingerprint = std::unique_ptr<void, decltype([](void* fingerprint) { fp_Done(fingerprint); })>;

Fingerprint newFingerprint(const char* name) {
    Fingerprint fingerprint(fp_Init(name));
    fp_SetProperty(fingerprint.get(), TCPROP_UTF8AWARE, TC_TRUE);
    return fingerprint;
}

/// The library reads its models from files, so each goes through one that has no name on disk. Null on failure.
Fingerprint readModel(const LanguageModel& model) {
    const int file = memfd_create(model.code, MFD_CLOEXEC);
    if (file < 0) return nullptr;
    Fingerprint fingerprint = newFingerprint(model.code);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    const auto size = static_cast<ssize_t>(model.letterGroups.size());
    const bool read = write(file, model.letterGroups.data(), model.letterGroups.size()) == size &&
                      fp_Read(fingerprint.get(), path.c_str(), letterGroups) != 0;
    close(file);
    return read ? std::move(fingerprint) : nullptr;
}

const std::vector<Fingerprint>& knownLanguages() {
    static const std::vector<Fingerprint> known = [] {
        std::vector<Fingerprint> models;
        for (const LanguageModel& model : languageModels()) {
            if (Fingerprint fingerprint = readModel(model)) models.push_back(std::move(fingerprint));
        }
        return models;
    }();
    return known;
}

/// The two ways of writing Chinese share most characters. A code page made for the one lacks the rest of the other.
std::string clearlyBetterChinese(const icu::UnicodeString& text, bool isTraditional) {
    const auto lost = [&](bool traditional) { return lossIn(traditional ? "Big5" : "GB2312", text).count(); };
    const std::size_t clearlyMore = static_cast<std::size_t>(text.length()) / 10;
    return lost(isTraditional) > lost(!isTraditional) + clearlyMore ? (isTraditional ? "zh" : "zh_TW") : "";
}

}  // namespace

std::string clearlyBetterLanguage(const icu::UnicodeString& text, const std::string& code) {
    if (code == "zh" || code == "zh_TW") return clearlyBetterChinese(text, code == "zh_TW");
    if (text.length() < shortestText) return "";
    constexpr int32_t enough = 1 << 16;
    std::string bytes;
    text.tempSubString(0, enough).toUTF8String(bytes);
    const Fingerprint unknown = newFingerprint(nullptr);
    if (fp_Create(unknown.get(), bytes.data(), static_cast<uint4>(bytes.size()), letterGroups) == 0) return "";

    std::map<std::string, double> distances;
    for (const Fingerprint& language : knownLanguages()) {
        distances[fp_Name(language.get())] = fp_Compare(language.get(), unknown.get(), noLimit);
    }
    const auto own = distances.find(code);
    if (own == distances.end()) return "";
    const auto best = std::ranges::min_element(distances, {}, [](const auto& entry) { return entry.second; });
    return own->second > clearly * best->second ? best->first : "";
}

}  // namespace zev
