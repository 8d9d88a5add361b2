// A status file must be judged by its first line that is neither empty nor a comment. Whatever it held, it must be
// valid after zev has written it. Input: the file.

#include "files/status_file.h"

#include "lang/locale_choice.h"
#include "support.h"

namespace zev::fuzz {
namespace {

/// The rule, line by line. A line of 80 bytes or more is cut, and nothing after it counts.
bool saysAccepted(std::string_view bytes) {
    for (Input input(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()); !input.rest().empty();) {
        const std::string whole = input.upTo('\n');
        const std::string line = whole.substr(0, 79).c_str();
        if (!line.empty() && line[0] != '#') return line == "Status=9";
        if (whole.size() > 79) return false;
    }
    return false;
}

void checkStatus(Input input) {
    static const MemoryFile file;
    static const RunContext context = createRunContext("", "", 4);
    file.write(input.rest());
    require(checkStatusFile(context, file.path()) == saysAccepted(input.rest()), "judged by the rule");

    require(writeStatusFile(context, file.path()), "can be written");
    const std::string written = file.read();
    require(saysAccepted(written), "valid when written");
    require(written.size() == 39 && written.ends_with("\nStatus=9\n"), "nothing stays of what it held");
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkStatus({data, size});
    return 0;
}
