#include "consent/trusted_path.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <deque>
#include <fstream>
#include <optional>

#include "consent/way_out.h"

namespace zev {

namespace {

/// The id that the kernel shows in a user namespace for every id that has none there; no result outside of namespaces.
std::optional<uid_t> readOverflowId(const char* map, const char* overflow) {
    unsigned long inside = 0, outside = 0, count = 0;
    std::ifstream(map) >> inside >> outside >> count;
    constexpr unsigned long allIds = 0xFFFFFFFF;
    if (count == 0 || count == allIds) return std::nullopt;
    uid_t id = 65534;
    std::ifstream(overflow) >> id;
    return id;
}

bool isOverflowUser(uid_t id) {
    static const auto overflow = readOverflowId("/proc/self/uid_map", "/proc/sys/kernel/overflowuid");
    return overflow && id == *overflow;
}

bool isGroupOfRoot(gid_t id) {
    static const auto overflow = readOverflowId("/proc/self/gid_map", "/proc/sys/kernel/overflowgid");
    return id == 0 || (overflow && id == *overflow);
}

struct Flaw {
    std::string what{};  ///< empty if there is none
    std::string remedy{};
};

/// What is wrong with the mode of a directory. A sticky bit does not help the directory of a group, where the records
/// of all who can write to it count.
Flaw flawOf(const struct stat& status, bool isOfGroup) {
    const bool isSticky = (status.st_mode & S_ISVTX) != 0;
    if ((status.st_mode & S_IWOTH) != 0 && (isOfGroup || !isSticky)) {
        return {"everyone can write to it", "take that right away with chmod o-w"};
    }
    if (geteuid() == 0 && !isOfGroup && isOpenToGroup(status)) {
        return {"group " + std::to_string(status.st_gid) + " can write to it", "take that right away with chmod g-w"};
    }
    return {};
}

/// A walk along a path from the root, one directory after the other.
class Walk {
public:
    Walk(const std::string& path, DirectoryUse use, bool creates)
        : use_(use), creates_(creates), current_(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC)) {
        prepend(path);
    }

    TrustedDirectory run() {
        std::string problem = checkDirectory("/");
        while (problem.empty() && !steps_.empty()) {
            const std::string step = steps_.front();
            steps_.pop_front();
            problem = enter(step);
            if (isMissing_) return {Descriptor(), ""};
        }
        if (problem.empty()) problem = checkOwners();
        if (problem.empty()) return {std::move(current_), ""};
        return {Descriptor(), std::move(problem)};
    }

private:
    void prepend(const std::string& path) {
        std::deque<std::string> steps;
        for (std::size_t begin = 0; begin < path.size();) {
            const std::size_t end = std::min(path.find('/', begin), path.size());
            const std::string step = path.substr(begin, end - begin);
            if (!step.empty() && step != ".") steps.push_back(step);
            begin = end + 1;
        }
        steps_.insert(steps_.begin(), steps.begin(), steps.end());
    }

    std::string enter(const std::string& step) {
        const std::string shown = (walked_ == "/" ? "" : walked_) + "/" + step;
        Descriptor next(openat(current_.get(), step.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
        if (!next.isOpen() && errno == ENOENT && creates_) {
            if (!makeForRun(current_.get(), step, 0755)) return cannot(shown, "created");
            next = Descriptor(openat(current_.get(), step.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
        }
        if (!next.isOpen()) {
            isMissing_ = errno == ENOENT && !creates_;
            return isMissing_ ? "" : cannot(shown, "opened");
        }
        struct stat status {};
        if (fstat(next.get(), &status) != 0) return cannot(shown, "opened");
        if (S_ISLNK(status.st_mode)) return follow(next, status, shown);
        current_ = std::move(next);
        walked_ = shown;
        return checkDirectory(shown);
    }

    std::string follow(const Descriptor& link, const struct stat& status, const std::string& shown) {
        constexpr int mostLinks = 40;
        std::array<char, PATH_MAX> target;
        if (!isTrustedOwner(status.st_uid)) return refuse(shown, {"it is a link, and " + ownedBy(status.st_uid)});
        if (++links_ > mostLinks) return refuse(shown, {"there are too many links in the path"});
        const ssize_t size = readlinkat(link.get(), "", target.data(), target.size());
        if (size <= 0) return cannot(shown, "read");
        const std::string path(target.data(), static_cast<std::size_t>(size));
        prepend(path);
        if (path.front() != '/') return "";
        current_ = Descriptor(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
        walked_ = "/";
        return "";
    }

    std::string checkDirectory(const std::string& shown) {
        struct stat status {};
        if (fstat(current_.get(), &status) != 0) return cannot(shown, "opened");
        if (!S_ISDIR(status.st_mode)) return refuse(shown, {"it is not a directory"});
        if (use_ == DirectoryUse::state && !isTrustedOwner(status.st_uid)) {
            return refuse(shown, {ownedBy(status.st_uid)});
        }
        owners_.push_back({shown, status.st_uid});
        const Flaw flaw = flawOf(status, use_ == DirectoryUse::master && steps_.empty());
        return flaw.what.empty() ? "" : refuse(shown, flaw);
    }

    /// Comes last, because the owner of the master directory is known only then.
    [[nodiscard]] std::string checkOwners() const {
        for (const auto& [shown, owner] : owners_) {
            if (!isTrustedOwner(owner) && owner != owners_.back().uid) return refuse(shown, {ownedBy(owner)});
        }
        return "";
    }

    static std::string ownedBy(uid_t owner) {
        return "it belongs to user " + std::to_string(owner) + ", who can change it";
    }

    [[nodiscard]] std::string refuse(const std::string& shown, const Flaw& flaw) const {
        const std::string remedy = flaw.remedy.empty() ? "" : flaw.remedy + ", or ";
        const char* option = use_ == DirectoryUse::state ? "-s" : "-m";
        return shown + " is not safe for records: " + flaw.what + "; " + remedy + "name another directory with " +
               option + ".";
    }

    static std::string cannot(const std::string& shown, const char* done) {
        return shown + " cannot be " + done + ": " + std::strerror(errno);
    }

    struct Owned {
        std::string path;
        uid_t uid;
    };

    const DirectoryUse use_;
    const bool creates_;
    Descriptor current_;
    std::string walked_ = "/";
    std::deque<std::string> steps_;
    std::vector<Owned> owners_;
    int links_ = 0;
    bool isMissing_ = false;
};

}  // namespace

bool isOpenToGroup(const struct stat& status) {
    return (status.st_mode & S_IWGRP) != 0 && !isGroupOfRoot(status.st_gid);
}

bool isRoots(uid_t owner) { return owner == 0 || isOverflowUser(owner); }

bool isTrustedOwner(uid_t owner) { return isRoots(owner) || owner == geteuid(); }

TrustedDirectory openTrusted(const std::string& path, DirectoryUse use) { return Walk(path, use, false).run(); }

TrustedDirectory makeTrusted(const std::string& path, DirectoryUse use) {
    // Another run that declined can remove a directory that it made just as this one enters it.
    constexpr int attempts = 5;
    TrustedDirectory directory;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        directory = Walk(path, use, true).run();
        struct stat status {};
        if (directory.descriptor.isOpen() && fstat(directory.descriptor.get(), &status) == 0 && status.st_nlink > 0)
            break;
    }
    return directory;
}

}  // namespace zev
