#pragma once

#include <optional>
#include <string>

#include "consent/record.h"
#include "consent/trusted_path.h"

namespace zev {

inline constexpr const char* logSuffix = ".log";

/// The records of one product in a state directory, or in the master directory of a group. A function that returns a
/// text returns the cause of its failure, and an empty text on success.
class Store {
public:
    Store(std::string path, DirectoryUse use, std::string product);

    /// Opens the directory if it is there.
    [[nodiscard]] std::string open();
    /// Opens the directory, and creates it first if it is not there.
    [[nodiscard]] std::string create();
    [[nodiscard]] bool isOpen() const { return directory_.isOpen(); }
    [[nodiscard]] int descriptor() const { return directory_.get(); }
    [[nodiscard]] const std::string& path() const { return path_; }

    [[nodiscard]] Record find(const std::string& fingerprint) const;
    /// The latest acceptance of other terms of the product.
    [[nodiscard]] std::optional<Fields> newestOther(const std::string& fingerprint) const;

    /// Writes a record, the directory `name` of a scratch directory, to the disk, and then moves it into place. If
    /// another run has put a whole record there before, that is a success too, and `earlier` is its acceptance.
    [[nodiscard]] std::string publish(int scratch, const std::string& name, const std::string& fingerprint,
                                      std::optional<Fields>& earlier);

    /// Copies a record of another store to a scratch directory of its own, and publishes the copy.
    [[nodiscard]] std::string publishCopy(const Store& other, const std::string& fingerprint);

    /// Logs that a version came with terms that were accepted before, once for each version.
    [[nodiscard]] std::string logVersion(const std::string& fingerprint, const std::string& version,
                                         const std::string& who) const;

private:
    [[nodiscard]] std::string take(TrustedDirectory found);
    [[nodiscard]] Owners owners() const;
    [[nodiscard]] Descriptor openProduct(std::string& flaw) const;
    [[nodiscard]] Descriptor productDirectory() const;
    [[nodiscard]] bool shareWithGroup(const Descriptor& product) const;
    [[nodiscard]] std::string openProductDirectory(Descriptor& product) const;
    [[nodiscard]] std::string move(int scratch, const std::string& name, const std::string& fingerprint,
                                   std::optional<Fields>& earlier);

    std::string path_;
    DirectoryUse use_;
    std::string product_;
    Descriptor directory_;
    struct stat status_ {};
};

/// Writes a record in a scratch directory to the disk.
[[nodiscard]] bool syncRecord(int scratch, const std::string& name);

}  // namespace zev
