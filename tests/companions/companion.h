#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/session.h"

namespace zev::test {

/// The companions under one shell: dash with the utilities of the system, or BusyBox's ash with BusyBox's alone. By the
/// umask, nobody but the caller may read what is made.
class Companion : public testing::TestWithParam<std::string> {
protected:
    Companion();

    /// The arguments that make the shell run a companion.
    [[nodiscard]] Arguments command(const std::string& companion, const Arguments& arguments) const;
    /// The arguments that make the shell ask for the terms in `licenses`, with the state in `status`.
    [[nodiscard]] Arguments asking(const Arguments& more = {}) const;
    /// The arguments that make the shell run a script in the sandbox, in which "$@" asks and "$AUDIT" is zev-audit.
    [[nodiscard]] Arguments script(const std::string& text) const;
    /// Runs the shell without a terminal.
    [[nodiscard]] Finished runShell(const Arguments& arguments, const Environment& more = {}) const;
    [[nodiscard]] Terminal onTerminal(const Arguments& arguments, const Environment& more = {},
                                      unsigned short rows = 24, unsigned short columns = 80) const;
    [[nodiscard]] Finished ask(const Arguments& more = {}) const;
    [[nodiscard]] Finished audit(const Arguments& arguments) const;
    [[nodiscard]] std::string terms() const;
    /// A path inside the record of the terms as they are now.
    [[nodiscard]] std::string record(const std::string& name, const std::string& state = "status") const;

    const Sandbox sandbox;

private:
    [[nodiscard]] Environment environment(Environment more) const;

    std::string shell_ = "/bin/dash";
    Arguments applet_;
    std::string path_ = "/usr/bin:/bin";
};

}  // namespace zev::test
