#include "authoring/text_facts.h"

#include <unicode/localpointer.h>
#include <unicode/regex.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "authoring/finding.h"

namespace zev {

namespace {

constexpr std::size_t leastDigits =
    4;  ///< of a number without a sign inside: years, amounts and laws, but not the items of a list

/// An address ends where ASCII ends, because Chinese goes on without a blank, and at an apostrophe, because Turkish
/// adds its endings there. A name in one of the four domains needs neither "https" nor "www". The limits are those of
/// real names; without them, the time for a long row of letters and full stops would grow with the square of its
/// length.
constexpr const char16_t* addressPattern =
    uR"((?i)(?<![a-z0-9@])(?:[a-z0-9._+-]{1,64}@(?:[a-z0-9-]{1,63}\.){1,8}[a-z]{1,63})"
    uR"(|(?:(?:https?|ftp)://|www\.)[!-~&&[^<>"'`{|}\\^\[\]]]+)"
    uR"(|[a-z0-9-]{1,63}(?:\.[a-z0-9-]{1,63}){0,8}\.(?:com|eu|net|org)(?![a-z0-9])(?:/[!-~&&[^<>"'`{|}\\^\[\]]]*)?))";

/// The signs that follow an address and are no part of it.
constexpr std::string_view signsAfterAddress = ".,;:!?)*_/";

/// What addresses such as "example.com/jp/" name a language by, in addition to its code.
constexpr struct {
    std::string_view language, part;
} otherParts[]{
    {"cs", "cz"}, {"el", "gr"}, {"en", "gb"}, {"en", "us"},   {"ja", "jp"},    {"ko", "kr"},
    {"pt", "br"}, {"sl", "si"}, {"zh", "cn"}, {"zh", "hans"}, {"zh_TW", "tw"}, {"zh_TW", "hant"},
};

bool namesLanguage(std::string_view part, std::string_view code) {
    const bool isOther = std::ranges::any_of(
        otherParts, [&](const auto& other) { return other.language == code && other.part == part; });
    return isOther || part == code.substr(0, 2);
}

constexpr char languageMark = ' ';  ///< no address has a blank

/// A part of an address with a mark in place of each of its words that names the language, and with one mark only if
/// all of them do, as in "en-us".
std::string withMarks(std::string_view part, std::string_view code) {
    std::string marked;
    bool isLanguage = !part.empty();
    for (std::size_t begin = 0, end; begin <= part.size(); begin = end + 1) {
        end = std::min(part.find_first_of("-_", begin), part.size());
        const std::string_view word = part.substr(begin, end - begin);
        const bool isName = namesLanguage(word, code);
        isLanguage = isLanguage && isName;
        marked.append(isName ? std::string_view(&languageMark, 1) : word).append(part.substr(end, 1));
    }
    return isLanguage ? std::string(1, languageMark) : marked;
}

/// The forms in which an address can equal one in another language: with its parts that name the language marked, and
/// without those that only some languages have. These are parts of the path, and the first label of a host if it is
/// the code itself: "us.example.com" need not be the English page of example.com.
std::vector<std::string> localNames(const std::string& address, std::string_view code) {
    const std::size_t path = address.find('/');
    std::string all, needed;
    for (std::size_t begin = 0, end; begin <= address.size(); begin = end + 1) {
        end = std::min(address.find_first_of("./?=&", begin), address.size());
        const std::string part = address.substr(begin, end - begin), marked = withMarks(part, code);
        const std::string sign = begin == 0 ? "" : address.substr(begin - 1, 1);
        all += sign + marked;
        const bool isInPath = begin > path && (sign == "/" || sign == ".");
        const bool isHost = begin == 0 && part.starts_with(code.substr(0, 2));
        const bool isNeeded = marked != std::string(1, languageMark) || !(isInPath || isHost);
        if (isNeeded) needed += (needed.empty() ? "" : sign) + part;
    }
    return {all, needed};
}

std::string comparable(std::string address) {
    std::ranges::transform(address, address.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const std::string_view beginning : {"https://", "http://", "www."}) {
        if (address.starts_with(beginning)) address.erase(0, beginning.size());
    }
    return address;
}

bool isOneOf(char16_t unit, std::u16string_view units) { return units.find(unit) != units.npos; }

/// The value of a digit of any script; -1 for other characters.
int digitAt(const icu::UnicodeString& text, int32_t index) { return u_charDigitValue(text.char32At(index)); }

/// The value of a digit that Chinese writes like a word; -1 for other characters.
int chineseDigitAt(const icu::UnicodeString& text, int32_t index) {
    constexpr std::u16string_view digits = u"〇一二三四五六七八九零○";
    const char16_t unit = text.charAt(index);
    const std::size_t found = unit < u'○' ? digits.npos : digits.find(unit);
    return found == digits.npos ? -1 : static_cast<int>(found < 10 ? found : 0);
}

/// A number with the signs in it.
struct Number {
    std::vector<std::string> parts;  ///< the digits between the signs
    int32_t end = 0;
    bool hasDots = true;  ///< all signs are full stops

    [[nodiscard]] std::string digits() const {
        std::string digits;
        for (const std::string& part : parts) digits += part;
        return digits;
    }

    /// The year, if it is a date such as 22.11.2024, 2024.11.22 or 11.2024.
    [[nodiscard]] std::string year() const {
        if (!hasDots || parts.size() < 2 || parts.size() > 3) return "";
        const auto isYear = [](const std::string& part) {
            return part.size() == 4 && (part.starts_with("19") || part.starts_with("20"));
        };
        const bool isLast = isYear(parts.back());
        if (!isLast && !(parts.size() == 3 && isYear(parts.front()))) return "";
        const auto year = isLast ? parts.end() - 1 : parts.begin();
        const bool othersAreShort = std::ranges::count_if(parts, [](const auto& p) { return p.size() > 2; }) == 1;
        return othersAreShort ? *year : "";
    }
};

/// How many digits begin at `index`, counted up to four.
std::size_t digitsAfter(const icu::UnicodeString& text, int32_t index) {
    std::size_t count = 0;
    while (count < 4 && index < text.length() && digitAt(text, index) >= 0) {
        index = text.moveIndex32(index, 1);
        ++count;
    }
    return count;
}

Number readNumber(const icu::UnicodeString& text, int32_t begin) {
    constexpr std::size_t group = 3;  ///< thousands
    Number number;
    bool isGrouped = true;
    for (int32_t i = begin;;) {
        std::string& part = number.parts.emplace_back();
        for (int digit; i < text.length() && (digit = digitAt(text, i)) >= 0; i = text.moveIndex32(i, 1)) {
            part += static_cast<char>('0' + digit);
        }
        number.end = i;
        const char16_t sign = text.charAt(i);
        const std::size_t follow = digitsAfter(text, i + 1);
        isGrouped = isGrouped && part.size() <= group && (number.parts.size() == 1 || part.size() == group);
        const bool isBlank = u_charType(sign) == U_SPACE_SEPARATOR || sign == u'，';
        const bool joins = isBlank ? isGrouped && follow == group : isOneOf(sign, u".,'’．٫٬") && follow > 0;
        if (!joins) return number;
        isGrouped = isGrouped && isBlank;
        number.hasDots = number.hasDots && isOneOf(sign, u".．");
        ++i;
    }
}

class FactFinder {
public:
    FactFinder(const icu::UnicodeString& text, std::string_view language) : text_(text), language_(language) {}

    Facts find() {
        UErrorCode status = U_ZERO_ERROR;
        // Compiling it takes longer than searching a text.
        static const std::unique_ptr<icu::RegexPattern> pattern(icu::RegexPattern::compile(addressPattern, 0, status));
        const icu::LocalPointer<icu::RegexMatcher> addresses(pattern->matcher(text_, status));
        int32_t begin = 0;
        for (int32_t i = 0; U_SUCCESS(status) && i < text_.length();) {
            const int32_t end = endOfAscii(i);
            addresses->region(i, end, status);
            while (mayHoldAddress(i, end) && addresses->find(status) != 0) {
                findNumbers(begin, addresses->start(status));
                begin = addAddress(addresses->start(status), addresses->end(status));
            }
            i = end + 1;
        }
        findNumbers(begin, text_.length());
        return std::move(facts_);
    }

private:
    [[nodiscard]] std::string bytesOf(int32_t begin, int32_t end) const {
        return utf8Of(text_.tempSubStringBetween(begin, end));
    }

    /// The end of the visible ASCII characters in a row.
    [[nodiscard]] int32_t endOfAscii(int32_t begin) const {
        while (begin < text_.length() && text_[begin] > u' ' && text_[begin] <= u'~') ++begin;
        return begin;
    }

    /// An address has a full stop in it. Looking only there saves most of the time.
    [[nodiscard]] bool mayHoldAddress(int32_t begin, int32_t end) const {
        const int32_t dot = text_.indexOf(u'.', begin, end - begin);
        return dot >= begin && dot + 1 < end;
    }

    /// Adds the address between two offsets. Returns its end, without the signs after it.
    int32_t addAddress(int32_t begin, int32_t end) {
        while (end > begin && signsAfterAddress.find(static_cast<char>(text_[end - 1])) != signsAfterAddress.npos)
            --end;
        const std::string shown = bytesOf(begin, end), address = comparable(shown);
        facts_.try_emplace(address, Fact{begin, shown, localNames(address, language_)});
        return end;
    }

    void findNumbers(int32_t begin, int32_t end) {
        for (int32_t i = begin, next; i < end; i = next) {
            next = text_.moveIndex32(i, 1);
            if (digitAt(text_, i) >= 0) {
                const Number number = readNumber(text_, i);
                next = number.end;
                addNumber(number, i);
            } else if (chineseDigitAt(text_, i) >= 0) {
                std::string digits;
                for (next = i; chineseDigitAt(text_, next) >= 0; ++next) {
                    digits += static_cast<char>('0' + chineseDigitAt(text_, next));
                }
                addNumber({{digits}, next}, i);
            }
        }
    }

    void addNumber(const Number& number, int32_t begin) {
        const std::string year = number.year(), digits = year.empty() ? number.digits() : year;
        if (digits.size() < leastDigits && number.parts.size() < 2) return;
        facts_.try_emplace(digits, Fact{begin, bytesOf(begin, number.end), {}});
    }

    const icu::UnicodeString& text_;
    const std::string_view language_;
    Facts facts_;
};

}  // namespace

Facts factsOf(const icu::UnicodeString& text, std::string_view language) { return FactFinder(text, language).find(); }

}  // namespace zev
