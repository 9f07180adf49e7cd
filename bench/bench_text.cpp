#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cwctype>
#include <list>
#include <string>
#include <vector>

#include <kova/text/KOVAString.h>

#include "rows.h"

namespace {

/// Mixed letters, digits and signs, as file names and option texts have them.
std::string sample(std::size_t length) {
    static char const pattern[] = "Part_07/Bracket-Left (rev B).Step ";
    std::string text;
    while (text.size() < length)
        text += pattern[text.size() % (sizeof pattern - 1)];
    return text;
}

std::string opposite(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
        else if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

std::u16string wide(std::string const& text) {
    return std::u16string(text.begin(), text.end());
}

/// What a user of std::u16string writes for lack of such an operation.
int compareLowered(std::u16string const& a, std::u16string const& b) {
    std::size_t const limit = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < limit; ++i) {
        std::wint_t const lowerA = std::towlower(a[i]);
        std::wint_t const lowerB = std::towlower(b[i]);
        if (lowerA != lowerB)
            return lowerA < lowerB ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

/// Two texts in blocks of their own, as ours and as the peer has them.
struct Pair {
    Pair(std::string const& a, std::string const& b)
        : ourA(a.c_str()), ourB(b.c_str()), peerA(wide(a)), peerB(wide(b)) {}
    KOVAString ourA;
    KOVAString ourB;
    std::u16string peerA;
    std::u16string peerB;
};

void compareRows(std::string const& suffix, Pair const& texts) {
    bench::plainRow(
        "compareTo " + suffix, 1.0, [&] { return texts.ourA.compareTo(texts.ourB); },
        [&] { return texts.peerA.compare(texts.peerB); });
    bench::plainRow(
        "equals " + suffix, 1.0, [&] { return texts.ourA.equals(texts.ourB); },
        [&] { return texts.peerA == texts.peerB; });
}

void ignoreCaseRow(std::string const& suffix, Pair const& texts) {
    bench::plainRow(
        "compareToIgnoreCase " + suffix, 1.0 / 3, [&] { return texts.ourA.compareToIgnoreCase(texts.ourB); },
        [&] { return compareLowered(texts.peerA, texts.peerB); });
}

/// Everything that the rows of one length read.
struct Texts {
    explicit Texts(std::size_t length)
        : ascii(sample(length)), same(ascii, ascii), differing(ascii, ascii.substr(0, length - 1) + '~'),
          cases(ascii, opposite(ascii)), bytes(length + 1), wides(length + 1) {
        for (std::size_t i = 0; i < length; ++i)
            wides[i] = static_cast<unsigned char>(ascii[i]);
    }

    std::string ascii;
    Pair same;
    Pair differing;
    Pair cases;
    std::vector<char> bytes;
    std::vector<wchar_t> wides;
};

void addRows(std::size_t length) {
    static std::list<Texts> all; // the rows refer to them until the program ends
    Texts& texts = all.emplace_back(length);
    std::string const suffix = std::to_string(length);
    int const n = static_cast<int>(length);

    bench::plainRow(
        "copy " + suffix, 1.0 / 3, [&] { return KOVAString(texts.same.ourA); },
        [&] { return std::u16string(texts.same.peerA); });
    bench::plainRow(
        "join " + suffix, 1.0, [&] { return texts.same.ourA + texts.same.ourB; },
        [&] { return texts.same.peerA + texts.same.peerB; });
    bench::plainRow(
        "cut " + suffix, 1.0, [&texts, n] { return texts.same.ourA.substring(1, n - 1); },
        [&texts, length] { return texts.same.peerA.substr(1, length - 2); });
    compareRows("equal " + suffix, texts.same);
    compareRows("last differs " + suffix, texts.differing);
    ignoreCaseRow("opposite " + suffix, texts.cases);
    ignoreCaseRow("same " + suffix, texts.same);

    // Ours allocates its block and releases it again. mbstowcs alone writes to a buffer that stands
    // ready; with a wstring it does what a caller has to do for a text of unknown length.
    auto const fromAscii = [&] { return KOVAString(texts.ascii.c_str()); };
    bench::plainRow("from ASCII, mbstowcs alone " + suffix, 0.5, fromAscii,
                    [&] { return std::mbstowcs(texts.wides.data(), texts.ascii.c_str(), texts.wides.size()); });
    bench::plainRow("from ASCII, mbstowcs to wstring " + suffix, 0.5, fromAscii, [&] {
        std::wstring result(std::mbstowcs(nullptr, texts.ascii.c_str(), 0), L'\0');
        std::mbstowcs(result.data(), texts.ascii.c_str(), result.size() + 1);
        return result;
    });

    // getChars and wcstombs alone both write to a buffer that stands ready. The operator's row copies
    // the string, allocates the narrow form, and releases both.
    auto const toBuffer = [&] { return std::wcstombs(texts.bytes.data(), texts.wides.data(), texts.bytes.size()); };
    auto const narrowOfCopy = [&] {
        KOVAString const copy(texts.same.ourA);
        char const* const narrow = copy;
        return *narrow;
    };
    bench::plainRow(
        "getChars, wcstombs alone " + suffix, 0.5,
        [&texts, n] { texts.same.ourA.getChars(0, n, texts.bytes.data(), 0); }, toBuffer);
    bench::plainRow("char const* of a copy, wcstombs alone " + suffix, 0.5, narrowOfCopy, toBuffer);
    bench::plainRow("char const* of a copy, wcstombs to string " + suffix, 0.5, narrowOfCopy, [&] {
        std::string result(std::wcstombs(nullptr, texts.wides.data(), 0), '\0');
        std::wcstombs(result.data(), texts.wides.data(), result.size() + 1);
        return result;
    });
}

} // namespace

int main(int argc, char** argv) {
    if (!std::setlocale(LC_ALL, "C.UTF-8"))
        std::fputs("no C.UTF-8 locale here: the conversion rows are measured in the C locale\n", stderr);
    for (std::size_t const length : {12U, 40U, 400U})
        addRows(length);
    return bench::run(argc, argv);
}
