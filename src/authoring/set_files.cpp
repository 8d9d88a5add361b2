#include "authoring/set_files.h"

#include <algorithm>
#include <filesystem>

#include "app/run_options.h"
#include "authoring/text_encoding.h"
#include "files/directory_at.h"
#include "files/license_fingerprint.h"
#include "files/license_text_set.h"
#include "files/paths.h"

namespace zev {

namespace {

/// Whether a file has the bytes that `finishedText` makes of its text.
bool isFinished(const std::filesystem::path& path, const SetFile& file) {
    const FileContent content = readRegularFile(path);
    return content.good() && finishedText(decodeText(content.bytes, file.language).text, file.kind) == content.bytes;
}

}  // namespace

std::vector<SetFile> filesOfSet(int languageSet) {
    std::vector<SetFile> files;
    for (const auto& [code, englishName] : languagesOfSet(languageSet)) {
        for (const TextKind kind : {TextKind::agreement, TextKind::information}) {
            files.push_back({nameOf(kind, code), kind, &profileOf(code)});
        }
    }
    files.push_back({nonVurTermsName, TextKind::otherPartiesTerms, nullptr});
    files.push_back({noticesName, TextKind::notices, nullptr});
    return files;
}

std::string pathIn(std::string directory, const std::string& name) {
    while (directory.ends_with('/')) directory.pop_back();
    return joinPath(directory, name);
}

FileContent readTextFile(const std::string& path) {
    FileContent content = readRegularFile(path);
    std::error_code error;
    if (content.problem == missingFile && std::filesystem::is_symlink(path, error)) {
        content.problem = "a link that leads nowhere";
    }
    return content;
}

std::string nameOf(TextKind kind, const std::string& code) {
    return kind == TextKind::agreement ? agreementName(code) : informationName(code);
}

icu::UnicodeString withoutCarriageReturns(const icu::UnicodeString& text) {
    icu::UnicodeString result;
    for (int32_t i = 0, end; i < text.length(); i = end) {
        end = i + 1;
        if (text[i] != u'\r') {
            result += text[i];
            continue;
        }
        while (text.charAt(end) == u'\r') ++end;
        if (text.charAt(end) != u'\n') result.padTrailing(result.length() + end - i, u'\n');
    }
    return result;
}

icu::UnicodeString repairedText(icu::UnicodeString text, TextKind kind) {
    while (text.startsWith(u"\uFEFF")) text.remove(0, 1);
    if (text.indexOf(u'\r') >= 0) text = withoutCarriageReturns(text);
    if (kind == TextKind::agreement && !text.endsWith(u"\n")) text += u'\n';
    return text;
}

std::string finishedText(const icu::UnicodeString& text, TextKind kind) {
    icu::UnicodeString finished = repairedText(text, kind);
    if (kind == TextKind::information && !finished.startsWith(u"\n")) finished.insert(0, u'\n');
    return encodeUtf16(finished);
}

SetSums sumsOfSet(const std::string& directory) {
    SetSums sums;
    for (const std::string& name : licenseFileNames(defaultLanguageSet)) {
        const FileContent content = readRegularFile(joinPath(directory, name));
        if (content.good()) sums.files.push_back({name, sha256(content.bytes)});
    }
    sums.fingerprint = licenseFingerprint(sums.files);
    return sums;
}

std::string whyNotReplaceable(const std::string& directory) {
    namespace fs = std::filesystem;
    std::error_code error;
    if (!fs::exists(directory, error) && !error) return "";
    // It would be the one that is removed.
    if (fs::equivalent(directory, ".", error)) {
        return directory + ": not replaced: it is the working directory; run this command elsewhere";
    }
    const auto files = filesOfSet(defaultLanguageSet);
    std::vector<std::string> names;
    std::string problem;
    if (!listDirectory(directory, names, problem)) return problem;
    for (const std::string& name : names) {
        const fs::path path = fs::path(directory) / name;
        const auto file = std::ranges::find(files, name, &SetFile::name);
        if (file == files.end() || fs::is_symlink(path, error) || !isFinished(path, *file)) {
            return directory + ": not replaced: it holds " + name + ", which this command has not written";
        }
    }
    return "";
}

}  // namespace zev
