#include "authoring/set_builder.h"

#include <strings.h>

#include <algorithm>

#include "app/run_options.h"
#include "authoring/atomic_directory.h"
#include "authoring/directory_listing.h"
#include "authoring/finished_text.h"
#include "authoring/set_files.h"
#include "authoring/text_checks.h"
#include "authoring/text_encoding.h"
#include "authoring/text_source.h"
#include "files/license_text_set.h"
#include "files/paths.h"

namespace zev {

namespace {

constexpr const char* sourceSuffix = ".txt";

std::string nameOf(TextKind kind, const std::string& code) {
    return kind == TextKind::agreement ? agreementName(code) : informationName(code);
}

/// The texts that a set is made of, as far as they are there.
class Sources {
public:
    Sources(const std::string& directory, const BuildOptions& options) : directory_(directory), options_(options) {
        for (const SetFile& file : filesOfSet(options.languageSet)) read(file);
    }

    /// What `check` calls an error, and texts that nothing stands in for.
    [[nodiscard]] Findings errors() const {
        Findings errors = errors_;
        for (const SetFile& file : missing_) {
            if (options_.standIn.empty() || isMissing(nameOf(file.kind, options_.standIn))) {
                errors.push_back({{labelOf(file.name), file.name}, {}, Severity::error, "missing", missingFile});
            }
        }
        for (const Finding& finding : checkTexts(texts_, options_.standIn)) {
            if (finding.severity == Severity::error) errors.push_back(finding);
        }
        return errors;
    }

    /// The files of the set; there are no errors.
    [[nodiscard]] DirectoryContent content() const {
        DirectoryContent content;
        for (const SetText& text : texts_)
            content.emplace_back(text.file.name, finishedText(text.text, text.file.kind));
        for (const SetFile& file : missing_) {
            const auto standIn =
                std::ranges::find(content, nameOf(file.kind, options_.standIn), &DirectoryContent::value_type::first);
            content.emplace_back(file.name, standIn->second);
        }
        return content;
    }

    [[nodiscard]] std::vector<std::string> notes() const {
        std::vector<std::string> notes;
        for (const TextKind kind : {TextKind::agreement, TextKind::information}) {
            std::string note = nameOf(kind, "").substr(0, 2) + ": " + options_.standIn + " stands in for";
            const std::size_t beginning = note.size();
            for (const SetFile& file : missing_) {
                if (file.kind == kind) note += std::string(" ") + file.language->code;
            }
            if (note.size() > beginning) notes.push_back(note);
        }
        return notes;
    }

private:
    [[nodiscard]] std::string labelOf(const std::string& name) const {
        return joinPath(directory_, name + sourceSuffix);
    }

    [[nodiscard]] bool isMissing(const std::string& name) const {
        return std::ranges::find(missing_, name, &SetFile::name) != missing_.end();
    }

    void read(const SetFile& file) {
        const std::string label = labelOf(file.name);
        const FileContent content = readRegularFile(label);
        if (content.problem == missingFile) {
            if (file.language != nullptr) missing_.push_back(file);
            return;
        }
        if (!content.good()) {
            errors_.push_back({{label, file.name}, {}, Severity::error, "unreadable", content.problem});
            return;
        }
        SetText text{file, label, {}};
        const auto wellFormed = static_cast<std::ptrdiff_t>(decodeUtf8(content.bytes, text.text));
        if (content.bytes.begin() + wellFormed != content.bytes.end()) {
            const auto lineFeeds = std::count(content.bytes.begin(), content.bytes.begin() + wellFormed, '\n');
            errors_.push_back({{label, file.name},
                               {1 + static_cast<std::size_t>(lineFeeds), 0},
                               Severity::error,
                               "encoding",
                               "not UTF-8"});
            return;
        }
        texts_.push_back(std::move(text));
    }

    const std::string& directory_;
    const BuildOptions& options_;
    std::vector<SetText> texts_;
    std::vector<SetFile> missing_;
    Findings errors_;
};

/// Files of the sources that look like texts and are none of any set: a slip of the pen would let another text stand
/// in, or leave one out.
Findings misnamedSources(const std::string& directory, std::string& problem) {
    const std::string stems[]{agreementName(""), informationName(""), "non_vur", "notice"};
    const auto files = filesOfSet(defaultLanguageSet);
    std::vector<std::string> names;
    Findings findings;
    if (!listDirectory(directory, names, problem)) return findings;
    for (const std::string& name : names) {
        const auto beginsLike = [&](const std::string& stem) {
            return strncasecmp(name.c_str(), stem.c_str(), stem.size()) == 0;
        };
        const bool looksLikeText = std::ranges::any_of(stems, beginsLike);
        const auto isItsName = [&](const SetFile& file) { return file.name + sourceSuffix == name; };
        if (looksLikeText && std::ranges::none_of(files, isItsName)) {
            findings.push_back({{joinPath(directory, name), name},
                                {},
                                Severity::warning,
                                "name",
                                "not the name of a text of any set"});
        }
    }
    return findings;
}

}  // namespace

BuildResult buildSet(const std::string& sourceDirectory, const std::string& output, const BuildOptions& options) {
    BuildResult result;
    result.findings = misnamedSources(sourceDirectory, result.problem);
    if (!result.problem.empty()) return result;
    const Sources sources(sourceDirectory, options);
    std::ranges::copy(sources.errors(), std::back_inserter(result.findings));
    if (countOf(result.findings, Severity::error) > 0) return result;
    result.problem = whyNotReplaceable(output);
    if (!result.problem.empty()) return result;
    const DirectoryContent content = sources.content();
    result.notes = sources.notes();
    result.files = content.size();
    result.problem = replaceDirectory(output, content);
    return result;
}

}  // namespace zev
