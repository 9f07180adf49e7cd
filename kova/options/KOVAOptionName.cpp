#include <kova/options/KOVAOptionName.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <kova/containers/hash_index.h>
#include <kova/core/results.h>
#include <kova/options/name_parts.h>
#include <kova/text/static_text.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAOptionName) == 16);

using kova::detail::kFailure;
using kova::detail::kSuccess;
using kova::detail::NamePart;
using kova::detail::NameParts;

namespace {

constexpr int kNoMatch = 65535;

// --- the table
//
// Its names are made when the library is compiled: loading only relocates them, without a look-up of symbols.

/// The identifier is the name without its "/" at the front, with "_" for "/", "." and "!".
constexpr bool belongs(std::string_view identifier, std::string_view name) {
    if (!name.empty() && name[0] == '/')
        name.remove_prefix(1);
    if (identifier.size() != name.size())
        return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        bool const separator = name[i] == '/' || name[i] == '.' || name[i] == '!';
        if (identifier[i] != (separator ? '_' : name[i]))
            return false;
    }
    return true;
}

#define KOVA_OPTION_NAME(identifier, text)                                                                             \
  static_assert(belongs(#identifier, text), "the identifier is not made of the name");                                 \
  kova::detail::StaticUnits<sizeof(text)> block_##identifier(text);
#include KOVA_OPTION_NAMES
#undef KOVA_OPTION_NAME

} // namespace

struct KOVAOptionName::Table {
#define KOVA_OPTION_NAME(identifier, text) KOVAOptionName identifier{block_##identifier.units, text};
#include KOVA_OPTION_NAMES
#undef KOVA_OPTION_NAME
};

/// Keeps the table from being destroyed, and each name from being registered for that.
union KOVAOptionName::Storage {
    constexpr Storage() noexcept : table() {}
    ~Storage() {} // NOLINT(modernize-use-equals-default): that would be a deleted one
    Table table;

    static Storage instance;
};

KOVAOptionName::Storage KOVAOptionName::Storage::instance;

#define KOVA_OPTION_NAME(identifier, text)                                                                             \
  KOVAOptionName const& KOVAOptionName::identifier = KOVAOptionName::Storage::instance.table.identifier;
#include KOVA_OPTION_NAMES
#undef KOVA_OPTION_NAME

namespace {

unsigned int hashOf(KOVAString const& name) {
    return kova::detail::foldedHash(name, name.length());
}

bool same(KOVAString const& a, KOVAString const& b) {
    return a.length() == b.length() && kova::detail::sameFolded(a, b, a.length());
}

/// The sum of 2^i over the parts that are a "*", at most the largest int.
int starScore(NameParts const& candidate) {
    int score = 0;
    for (int i = 0; i < candidate.size(); ++i) {
        if (candidate[i].isStar())
            score = i < 30 ? score + (1 << i) : std::numeric_limits<int>::max();
    }
    return score;
}

bool fits(NameParts const& known, NameParts const& candidate) {
    for (int i = 0; i < candidate.size(); ++i) {
        if (!candidate[i].isStar() && !candidate[i].sameFolded(known[i]))
            return false;
    }
    return known.size() == candidate.size();
}

/// Steps from one text to the other, ignoring case: a letter more, less, other, or two that changed places.
/// (Damerau's distance between neighbours, by Wagner and Fischer's table with three rows.)
int distance(KOVAString const& a, KOVAString const& b) {
    kova::detail::LowerCase const lower;
    std::size_t const n = static_cast<std::size_t>(b.length());
    std::vector<int> beforeLast(n + 1), last(n + 1), row(n + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= a.length(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= n; ++j) {
            int const at = static_cast<int>(j);
            auto const equal = [&](int p, int q) { return lower(a[p]) == lower(b[q]); };
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (equal(i - 1, at - 1) ? 0 : 1)});
            if (i > 1 && j > 1 && equal(i - 1, at - 2) && equal(i - 2, at - 1))
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row[n];
}

} // namespace

// --- the registry

/// All names in order of registration, each in an entry of its own that is never released: names may have
/// been made on a stack. Beside them an index of whole names, and for wildcards the hash codes of the parts,
/// grouped by number of parts.
class KOVAOptionName::Registry {
public:
    static Registry& get() {
        static Registry* const registry = new Registry; // made by its first use, kept until the process ends
        return *registry;
    }

    /// A name that is known stays as it is; an empty one is never valid.
    void add(KOVAString const& name) {
        if (name.length() == 0 || index_.find(name))
            return;
        int const number = static_cast<int>(names_.size());
        names_.push_back(name);
        index_.insert(name, number);
        NameParts const parts(name);
        Group& group = groups_[parts.size()];
        group.names.push_back(number);
        for (int i = 0; i < parts.size(); ++i)
            group.hashes.push_back(parts[i].foldedHash());
    }

    std::vector<KOVAString> const& names() const { return names_; }

    bool isValid(KOVAString const& candidate) const {
        if (candidate.length() == 0)
            return false;
        if (index_.find(candidate))
            return true;
        if (candidate.indexOf('*') < 0)
            return false;
        NameParts const parts(candidate);
        int const score = starScore(parts);
        return score > 0 && score < kNoMatch && fitsAny(parts);
    }

private:
    struct Group {
        std::vector<int> names;
        std::vector<std::uint32_t> hashes; ///< of each name's parts
    };

    Registry() : index_(&hashOf, &same) {
        Table const& table = Storage::instance.table;
#define KOVA_OPTION_NAME(identifier, text) add(table.identifier.name_);
#include KOVA_OPTION_NAMES
#undef KOVA_OPTION_NAME
    }

    bool fitsAny(NameParts const& candidate) const {
        auto const found = groups_.find(candidate.size());
        if (found == groups_.end())
            return false;
        Group const& group = found->second;
        std::size_t const n = static_cast<std::size_t>(candidate.size());
        std::vector<std::pair<std::size_t, std::uint32_t>> wanted; // parts that are no "*", and their hash codes
        for (std::size_t i = 0; i < n; ++i) {
            NamePart const& part = candidate[static_cast<int>(i)];
            if (!part.isStar())
                wanted.emplace_back(i, part.foldedHash());
        }
        for (std::size_t k = 0; k < group.names.size(); ++k) {
            std::uint32_t const* const hashes = &group.hashes[k * n];
            bool const possible = std::all_of(wanted.begin(), wanted.end(),
                                              [hashes](auto const& part) { return hashes[part.first] == part.second; });
            if (possible && fits(NameParts(names_[static_cast<std::size_t>(group.names[k])]), candidate))
                return true;
        }
        return false;
    }

    std::vector<KOVAString> names_;
    kova::detail::HashIndex<KOVAString> index_;
    std::map<int, Group> groups_;
};

KOVAOptionName::KOVAOptionName(KOVAString const& name) : name_(name), narrow_(name_) {
    Registry::get().add(name);
}

KOVAOptionName::KOVAOptionName(KOVAOptionName const& other) = default;

KOVAOptionName& KOVAOptionName::operator=(KOVAOptionName const& other) = default;

KOVAOptionName::~KOVAOptionName() = default;

KOVIResult KOVAOptionName::Match(KOVAString const& known, KOVAString const& candidate, int& score) {
    if (known.compareToIgnoreCase(candidate) == 0) {
        score = 0;
        return kSuccess;
    }
    NameParts const parts(candidate);
    score = fits(NameParts(known), parts) ? starScore(parts) : kNoMatch;
    return kSuccess;
}

KOVIResult KOVAOptionName::IsValid(KOVAString const& candidate) {
    return Registry::get().isValid(candidate) ? kSuccess : kFailure;
}

KOVADynamicArray<KOVAString> KOVAOptionName::Nearest(KOVAString const& unknown) {
    int const most = std::max(2, unknown.length() / 6);
    std::vector<std::pair<int, KOVAString>> near;
    for (KOVAString const& name : Registry::get().names()) {
        if (std::abs(name.length() - unknown.length()) > most)
            continue;
        int const steps = distance(unknown, name);
        if (steps <= most)
            near.emplace_back(steps, name);
    }
    std::stable_sort(near.begin(), near.end(), [](auto const& a, auto const& b) { return a.first < b.first; });
    KOVADynamicArray<KOVAString> result;
    for (std::size_t i = 0; i < near.size() && i < 3 && near[i].first <= near[0].first + 1; ++i)
        result.add(near[i].second);
    return result;
}

KOVAString KOVAOptionName::DescribeUnknown(KOVAString const& unknown) {
    KOVADynamicArray<KOVAString> const near = Nearest(unknown);
    KOVAString text = KOVAString("unknown option '") + unknown + "'";
    for (int i = 0; i < near.size(); ++i)
        text = text + (i == 0 ? "; did you mean '" : i + 1 < near.size() ? ", '" : " or '") + near[i] + "'";
    return near.size() > 0 ? text + "?" : text;
}
