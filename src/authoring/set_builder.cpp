#include "authoring/set_builder.h"

#include <strings.h>

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "app/run_options.h"
#include "authoring/set_files.h"
#include "authoring/text_checks.h"
#include "authoring/text_encoding.h"
#include "files/atomic_directory.h"
#include "files/directory_at.h"

namespace zev {

namespace {

constexpr std::string_view sourceSuffix = ".txt";

const char* nameOfEncoding(Encoding encoding) {
    switch (encoding) {
        case Encoding::utf8: return "mostly zero bytes";
        case Encoding::utf16: return "UTF-16, as some editors save a text";
        case Encoding::utf16LittleEndian: return "UTF-16 without a byte order mark";
        case Encoding::utf32: return "UTF-32";
        case Encoding::codePage: return "an 8-bit code page, or a text that was damaged";
    }
    return "";
}

/// English in UTF-16 without a byte order mark is well-formed UTF-8, but nearly every second byte of it is zero.
bool isHalfZeros(const std::string& bytes) {
    constexpr double leastZeros = 0.4;  // of the bytes; quotation marks and dashes have none
    return static_cast<double>(std::ranges::count(bytes, '\0')) >= leastZeros * static_cast<double>(bytes.size());
}

/// The texts that a set is made from, and those that are missing.
class Sources {
public:
    explicit Sources(const BuildOptions& options)
        : options_(options), files_(filesOfSet(options.languageSet)), standIn_(options.standIn) {}

    void readDirectory(const std::string& directory) {
        for (const SetFile& file : files_) {
            const std::string path = pathIn(directory, file.name + std::string(sourceSuffix));
            if (!read(file, path) && file.language != nullptr) missing_.push_back({file, path});
        }
    }

    void readAgreement(const std::string& path) {
        standIn_ = options_.language;
        for (const SetFile& file : files_) {
            const bool isIt = file.name == nameOf(TextKind::agreement, standIn_) && read(file, path);
            if (!isIt && file.language != nullptr) missing_.push_back({file, path});
        }
    }

    [[nodiscard]] bool hasAgreements() const {
        return missingOf(TextKind::agreement).size() < languagesOfSet(options_.languageSet).size();
    }

    /// What `check` finds in the texts, those that are missing, and those that cannot be read.
    [[nodiscard]] Findings findings() const {
        Findings findings = unreadable_;
        for (const TextKind kind : {TextKind::agreement, TextKind::information}) {
            append(findings, findMissing(kind));
        }
        append(findings, checkAll());
        std::ranges::stable_sort(findings, {}, [this](const Finding& finding) { return placeOf(finding.file.name); });
        return findings;
    }

    /// The files of the set. To be called if the findings are not fatal.
    [[nodiscard]] DirectoryContent content() const {
        DirectoryContent content;
        for (const SetText& text : texts_) {
            content.emplace_back(text.file.name, finishedText(text.text, text.file.kind));
        }
        for (const auto& [file, path] : missing_) {
            const auto standIn = std::ranges::find(content, nameOf(file.kind, standIn_), &DirectoryFile::first);
            content.emplace_back(file.name, isAbsent(file.kind) ? finishedText(u"", file.kind) : standIn->second);
        }
        return content;
    }

    [[nodiscard]] std::vector<std::string> notes() const {
        std::vector<std::string> notes;
        for (const TextKind kind : {TextKind::agreement, TextKind::information}) {
            const std::string prefix = nameOf(kind, "").substr(0, 2) + ": ";
            const auto missing = missingOf(kind);
            if (isAbsent(kind)) {
                notes.push_back(prefix + "none; a line feed takes its place in every language");
            } else if (!missing.empty()) {
                notes.push_back(prefix + standIn_ + " stands in for" + listOfLanguages(missing));
            }
        }
        return notes;
    }

private:
    using DirectoryFile = DirectoryContent::value_type;

    struct MissingSource {
        SetFile file;
        std::string path;
    };

    [[nodiscard]] std::size_t placeOf(const std::string& name) const {
        return static_cast<std::size_t>(std::ranges::find(files_, name, &SetFile::name) - files_.begin());
    }

    [[nodiscard]] std::vector<MissingSource> missingOf(TextKind kind) const {
        std::vector<MissingSource> missing;
        std::ranges::copy_if(missing_, std::back_inserter(missing),
                             [kind](const MissingSource& source) { return source.file.kind == kind; });
        return missing;
    }

    /// Whether no language has information. A product may have none; it always has an agreement.
    [[nodiscard]] bool isAbsent(TextKind kind) const {
        return kind == TextKind::information && missingOf(kind).size() == languagesOfSet(options_.languageSet).size();
    }

    static std::string listOfLanguages(const std::vector<MissingSource>& missing) {
        std::string list;
        for (const MissingSource& source : missing) list += std::string(" ") + source.file.language->code;
        return list;
    }

    [[nodiscard]] Findings findMissing(TextKind kind) const {
        if (isAbsent(kind)) return {};
        auto missing = missingOf(kind);
        std::string why = missingFile;
        const auto standIn = std::ranges::find_if(
            missing, [this](const MissingSource& source) { return source.file.language->code == standIn_; });
        if (!standIn_.empty() && standIn == missing.end()) return {};
        if (standIn != missing.end()) {
            const MissingSource only = *standIn;
            missing.erase(standIn);
            if (!missing.empty()) why += "; it is to stand in for" + listOfLanguages(missing);
            missing = {only};
        }
        Findings findings;
        for (const auto& [file, path] : missing) {
            findings.push_back({{path, file.name}, {}, Severity::error, "missing", why});
        }
        return findings;
    }

    /// Checks the texts, and the original in the place of those that are missing: there it can have warnings of its
    /// own, and no errors but those of the original.
    [[nodiscard]] Findings checkAll() const {
        std::vector<SetText> texts = texts_;
        for (const SetText& text : texts_) {
            if (text.file.language == nullptr || text.file.language->code != standIn_) continue;
            for (const MissingSource& missing : missingOf(text.file.kind)) {
                texts.push_back({missing.file, text.path, text.text});
            }
        }
        Findings findings = checkTexts(texts, standIn_);
        const auto isInStandIn = [this](const Finding& finding) {
            const auto nameOf = [](const MissingSource& missing) { return missing.file.name; };
            return std::ranges::find(missing_, finding.file.name, nameOf) != missing_.end();
        };
        std::erase_if(findings, [&](const Finding& f) { return f.severity == Severity::error && isInStandIn(f); });
        for (Finding& finding : findings) {
            if (isInStandIn(finding)) finding.message = "in " + finding.file.name + ", " + finding.message;
        }
        return findings;
    }

    /// False if there is no such file.
    bool read(const SetFile& file, const std::string& path) {
        const FileContent content = readTextFile(path);
        if (content.problem == missingFile) return false;
        if (!content.good()) {
            unreadable_.push_back({{path, file.name}, {}, Severity::error, "unreadable", content.problem});
            return true;
        }
        icu::UnicodeString text;
        const std::size_t wellFormed = decodeUtf8(content.bytes, text);
        const bool isWellFormed = wellFormed == content.bytes.size();
        if (isWellFormed && (content.bytes.empty() || !isHalfZeros(content.bytes))) {
            texts_.push_back({file, path, repairedText(std::move(text), file.kind)});
            return true;
        }
        const std::string encoding = nameOfEncoding(decodeText(content.bytes, file.language).encoding);
        const icu::UnicodeString before = withoutCarriageReturns(text);
        unreadable_.push_back({{path, file.name},
                               isWellFormed ? Position{} : positionAt(before, before.length()),
                               Severity::error,
                               "encoding",
                               "not UTF-8 but " + encoding + "; save it as UTF-8"});
        return true;
    }

    const BuildOptions& options_;
    const std::vector<SetFile> files_;
    std::string standIn_;
    std::vector<SetText> texts_;
    std::vector<MissingSource> missing_;
    Findings unreadable_;
};

bool isReadme(const std::string& name) {
    constexpr std::string_view readme = "README";
    return strncasecmp(name.c_str(), readme.data(), readme.size()) == 0 &&
           (name.size() == readme.size() || name[readme.size()] == '.');
}

/// The files of a directory, without hidden files and README.
std::vector<std::string> filesIn(const std::string& directory, std::string& problem) {
    std::vector<std::string> names;
    if (!listDirectory(directory, names, problem)) return {};
    std::erase_if(names, [&](const std::string& name) {
        std::error_code error;
        return name.starts_with('.') || isReadme(name) || std::filesystem::is_directory(pathIn(directory, name), error);
    });
    return names;
}

/// The files that belong to no set. Their author may believe that the text in one of them is in the set.
Findings misnamedSources(const std::string& directory, const std::vector<std::string>& names) {
    const auto files = filesOfSet(defaultLanguageSet);
    Findings findings;
    for (const std::string& name : names) {
        const auto isItsName = [&](const SetFile& file) { return file.name + std::string(sourceSuffix) == name; };
        if (std::ranges::any_of(files, isItsName)) continue;
        findings.push_back({{pathIn(directory, name), name},
                            {},
                            Severity::warning,
                            "name",
                            "a file of this name belongs to no set and is left out"});
    }
    return findings;
}

/// Whether a file seems to be a text, in whichever encoding: pictures and archives have control characters.
bool isText(const std::string& path) {
    if (path.ends_with(sourceSuffix)) return true;
    const FileContent content = readTextFile(path);
    const bool hasMark = content.bytes.starts_with("\xFE\xFF") || content.bytes.starts_with("\xFF\xFE");
    const auto isControl = [](unsigned char byte) { return byte < ' ' && (byte < '\t' || byte > '\r'); };
    return content.good() && (hasMark || std::ranges::none_of(content.bytes, isControl));
}

Finding noAgreements(const std::string& directory, const std::vector<std::string>& names) {
    std::string texts;
    for (const std::string& name : names) {
        if (isText(pathIn(directory, name))) texts += (texts.empty() ? "" : ", ") + printable(name);
    }
    return {{directory, ""},
            {},
            Severity::error,
            "missing",
            texts.empty() ? "no agreement LA_xx.txt, and no other text file"
                          : "no agreement LA_xx.txt of a language of the set, only " + texts +
                                "; if one of them is for all languages, give its path, and its language with --lang"};
}

}  // namespace

BuildResult buildSet(const std::string& sourcePath, const std::string& output, const BuildOptions& options) {
    BuildResult result;
    Sources sources(options);
    std::error_code error;
    const auto status = std::filesystem::status(sourcePath, error);
    const bool isOneText = std::filesystem::exists(status) && !std::filesystem::is_directory(status);
    if (isOneText && options.language.empty()) {
        result.problem = sourcePath + ": one text; give its language, such as --lang en";
    } else if (std::filesystem::is_directory(status) && !options.language.empty()) {
        result.problem = sourcePath + ": a directory; --lang is for one text";
    } else if (isOneText) {
        sources.readAgreement(sourcePath);
        result.findings = sources.findings();
    } else if (const auto names = filesIn(sourcePath, result.problem); result.problem.empty()) {
        sources.readDirectory(sourcePath);
        if (sources.hasAgreements()) {
            result.findings = misnamedSources(sourcePath, names);
            append(result.findings, sources.findings());
        } else {
            result.findings = {noAgreements(sourcePath, names)};
        }
    }
    if (!result.problem.empty()) return result;
    acceptFindings(result.findings, options.accepted);
    if (areFatal(result.findings, options.isStrict)) return result;

    result.problem = whyNotReplaceable(output);
    if (!result.problem.empty()) return result;
    const DirectoryContent content = sources.content();
    result.problem = replaceDirectory(output, content);
    if (!result.problem.empty()) return result;
    result.notes = sources.notes();
    result.files = content.size();
    return result;
}

}  // namespace zev
