#include <kova/options/KOVAOptions.h>

#include <memory>
#include <vector>

#include <kova/containers/hash_index.h>
#include <kova/core/results.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/options/KOVACfgFile.h>
#include <kova/options/name_parts.h>
#include <kova/stream/KOVAStreamFormatter.h>
#include <kova/system/KOVAFilePath.h>
#include <kova/text/Gk_StringParser.h>
#include <kova/text/words.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAOptions) == 12);

using kova::detail::kFailure;
using kova::detail::kFileOpenError;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;
using kova::detail::NamePart;
using kova::detail::NameParts;

namespace {

constexpr int kLevels = 7;

constexpr unsigned short kStarUnits[] = {'*', 0};
constexpr NamePart kStar{kStarUnits, 1};

/// The option's value, read as its type.
template <class T> void dumpAs(KOVAStreamFormatter& formatter, KOVAOption const& option) {
    T value{};
    option.GetValue(value);
    formatter << value;
}

/// The part that a name has at a level of its path: the last part first, then the others, then "*".
NamePart const& partAt(NameParts const& parts, int level) {
    if (level == 0)
        return parts[parts.size() - 1];
    return level < parts.size() ? parts[level - 1] : kStar;
}

} // namespace

/// A node of the tree. Every option lies at the end of a path of seven nodes. The root also knows the ends
/// by the whole names under which options were added: what is asked for by such a name needs no walk.
class KOVAOptionToken {
public:
    explicit KOVAOptionToken(KOVAOptionToken* parent = nullptr, NamePart const& part = NamePart())
        : token_(part.units, part.units + part.length), parent_(parent) {}
    KOVAOptionToken(KOVAOptionToken const& other, KOVAOptionToken* parent)
        : token_(other.token_), parent_(parent), option(other.option ? new KOVAOption(*other.option) : nullptr) {
        for (auto const& child : other.children_)
            adopt(std::make_unique<KOVAOptionToken>(*child, this));
    }

    NamePart part() const noexcept { return {token_.data(), static_cast<int>(token_.size())}; }

    KOVAOptionToken* find(NamePart const& wanted) const {
        if (index_) {
            std::int32_t const* const found = index_->find(wanted);
            return found ? children_[static_cast<std::size_t>(*found)].get() : nullptr;
        }
        for (auto const& child : children_) {
            if (child->part() == wanted)
                return child.get();
        }
        return nullptr;
    }

    KOVAOptionToken* findOrAdd(NamePart const& wanted) {
        KOVAOptionToken* const found = find(wanted);
        return found ? found : adopt(std::make_unique<KOVAOptionToken>(this, wanted));
    }

    KOVAOptionToken* star() const noexcept { return star_; }

    /// Of a root: the end that was remembered for a name; null when there is none.
    KOVAOptionToken* end(KOVAString const& name) const {
        std::int32_t const* const found = ends_ ? ends_->index.find({name, name.length()}) : nullptr;
        return found ? ends_->nodes[static_cast<std::size_t>(*found)].second : nullptr;
    }
    /// The same names as another root, whose tree this is a copy of.
    void rememberEndsOf(KOVAOptionToken const& other) {
        if (other.ends_) {
            for (auto const& [name, node] : other.ends_->nodes)
                rememberEnd(name, exactEnd(NameParts(name)));
        }
    }
    /// Of a root: the end of exactly this path, "*" standing for nothing else; null when there is none.
    KOVAOptionToken* exactEnd(NameParts const& parts) {
        KOVAOptionToken* node = parts.size() >= 1 && parts.size() <= kLevels ? this : nullptr;
        for (int level = 0; node && level < kLevels; ++level)
            node = node->find(partAt(parts, level));
        return node;
    }
    void rememberEnd(KOVAString const& name, KOVAOptionToken* node) {
        if (end(name))
            return;
        if (!ends_)
            ends_ = std::make_unique<Ends>();
        ends_->nodes.emplace_back(name, node);
        ends_->index.insert({ends_->nodes.back().first, name.length()},
                            static_cast<std::int32_t>(ends_->nodes.size()) - 1);
    }

    /// The node behind this one, children first; null behind the last.
    KOVAOptionToken* next() const noexcept {
        if (!children_.empty())
            return children_.front().get();
        KOVAOptionToken const* node = this;
        while (node->parent_ && node->position_ + 1 == node->parent_->children_.size())
            node = node->parent_;
        return node->parent_ ? node->parent_->children_[node->position_ + 1].get() : nullptr;
    }

private:
    KOVAOptionToken* adopt(std::unique_ptr<KOVAOptionToken> child) {
        constexpr std::size_t kScanned = 8; // up to so many, comparing one after the other is faster
        KOVAOptionToken* const added = child.get();
        added->position_ = children_.size();
        children_.push_back(std::move(child));
        if (added->part() == kStar)
            star_ = added;
        if (index_) {
            index_->insert(added->part(), static_cast<std::int32_t>(added->position_));
        } else if (children_.size() > kScanned) {
            index_ = std::make_unique<Index>();
            for (auto const& each : children_)
                index_->insert(each->part(), static_cast<std::int32_t>(each->position_));
        }
        return added;
    }

    using Index = kova::detail::HashIndex<NamePart>;
    struct Ends {
        std::vector<std::pair<KOVAString, KOVAOptionToken*>> nodes;
        Index index; ///< its keys lie in the names
    };

    std::vector<unsigned short> token_;
    KOVAOptionToken* parent_;
    std::size_t position_ = 0; ///< among the parent's children
    KOVAOptionToken* star_ = nullptr;
    std::vector<std::unique_ptr<KOVAOptionToken>> children_;
    std::unique_ptr<Index> index_; ///< its keys lie in the children
    std::unique_ptr<Ends> ends_;   ///< of a root

public:
    std::unique_ptr<KOVAOption> option;
};

KOVAOptions::KOVAOptions() = default;

KOVAOptions::KOVAOptions(KOVAOptions const& other) {
    *this = other;
}

KOVAOptions& KOVAOptions::operator=(KOVAOptions const& other) {
    if (this != &other) {
        RemoveAll();
        root_ = other.root_ ? new KOVAOptionToken(*other.root_, nullptr) : nullptr;
        size_ = other.size_;
        if (root_)
            root_->rememberEndsOf(*other.root_);
    }
    return *this;
}

KOVAOptions::~KOVAOptions() {
    RemoveAll();
}

void KOVAOptions::RemoveAll() {
    delete root_;
    root_ = nullptr;
    cursor_ = nullptr;
    size_ = 0;
}

// --- adding

KOVIResult KOVAOptions::AddOption(KOVAOption const* option) {
    if (!option)
        return kInvalidArgument;
    NameParts const parts(option->name_);
    if (parts.size() < 1 || parts.size() > kLevels)
        return kInvalidArgument;
    if (!root_)
        root_ = new KOVAOptionToken;
    KOVAOptionToken* node = root_;
    for (int level = 0; level < kLevels; ++level)
        node = node->findOrAdd(partAt(parts, level));
    root_->rememberEnd(option->name_, node);
    if (node->option) {
        *node->option = *option;
    } else {
        node->option = std::make_unique<KOVAOption>(*option);
        ++size_;
    }
    return kSuccess;
}

KOVIResult KOVAOptions::add(char const* name, KOVAValue const& value) {
    return AddOption(KOVAOption(KOVAString(name), value, false));
}

KOVIResult KOVAOptions::AddOption(char const* name, bool value) {
    return add(name, value);
}

KOVIResult KOVAOptions::AddOption(char const* name, int value) {
    return add(name, value);
}

KOVIResult KOVAOptions::AddOption(char const* name, double value) {
    return add(name, value);
}

KOVIResult KOVAOptions::AddOption(char const* name, KOVAString const& value) {
    return add(name, value);
}

KOVIResult KOVAOptions::AddOption(char const* name, char const* value) {
    return add(name, value);
}

KOVIResult KOVAOptions::AddOptionParseValue(char const* name, char const* text) {
    Gk_StringParser parser{Gk_String(text)};
    if (parser.isInteger(0))
        return add(name, parser.intValue32());
    if (parser.isReal(0))
        return add(name, parser.realValue());
    KOVAString const word(text);
    if (kova::detail::isYes(word))
        return add(name, true);
    if (kova::detail::isNo(word))
        return add(name, false);
    return add(name, word);
}

KOVIResult KOVAOptions::AddOptions(KOVAOptions& other, bool overwrite) {
    KOVAOption* option = nullptr;
    other.InitEnumeration();
    while (other.GetNext(option).IsSuccess()) {
        if (overwrite || !HasOption(option->name_))
            AddOption(option);
    }
    return kSuccess;
}

// --- looking up

/// Exactly this path, without "*" standing for anything.
bool KOVAOptions::HasOption(KOVAString const& name) const {
    KOVAOptionToken const* const node = root_ ? root_->exactEnd(NameParts(name)) : nullptr;
    return node && node->option;
}

/// Looks below a node for the parts from a level on: an exact part first, then "*".
KOVAOption* KOVAOptions::GetOptionFromToken(KOVAOptionToken const& node, void const* name, int level) {
    if (level == kLevels)
        return node.option.get();
    NameParts const& parts = *static_cast<NameParts const*>(name);
    NamePart const& part = partAt(parts, level);
    if (!part.isStar()) {
        KOVAOptionToken const* const exact = node.find(part);
        if (KOVAOption* const found = exact ? GetOptionFromToken(*exact, name, level + 1) : nullptr)
            return found;
    }
    return node.star() ? GetOptionFromToken(*node.star(), name, level + 1) : nullptr;
}

KOVIResult KOVAOptions::GetOption(KOVAString const& name, KOVAOption*& option) const {
    if (KOVAOptionToken const* const end = root_ ? root_->end(name) : nullptr) {
        option = end->option.get();
        return kSuccess;
    }
    NameParts const parts(name);
    if (parts.size() == 0)
        return kInvalidArgument;
    KOVAOption* const found = root_ && parts.size() <= kLevels ? GetOptionFromToken(*root_, &parts, 0) : nullptr;
    if (!found)
        return kFailure;
    option = found;
    return kSuccess;
}

KOVIResult KOVAOptions::GetNext(KOVAOption*& option) {
    if (!root_)
        root_ = new KOVAOptionToken; // which stands for the end as well
    if (cursor_ == root_)
        return kFailure;
    KOVAOptionToken* node = cursor_ ? cursor_->next() : root_->next();
    while (node && !node->option)
        node = node->next();
    cursor_ = node ? node : root_;
    if (!node)
        return kFailure;
    option = node->option.get();
    return kSuccess;
}

// --- files and printing

KOVIResult KOVAOptions::ReadFromFile(std::FILE* file) {
    if (!file)
        return kInvalidArgument;
    KOVACfgFile contents;
    if (contents.Load(file).IsFailure())
        return kFailure;
    KOVACfgFileSection const* const section = contents.GetSection(0);
    for (int i = 0; section && i < section->GetNumKeys(); ++i) {
        KOVACfgFileKey const* const key = section->GetKey(i);
        AddOptionParseValue(key->GetName(), key->GetAllValues());
    }
    return kSuccess;
}

KOVIResult KOVAOptions::ReadFromFile(KOVAString const& path) {
    if (path.length() == 0)
        return kInvalidArgument;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(KOVAFilePath(path).OpenFile(KOVAString("rt")),
                                                               &std::fclose);
    return file ? ReadFromFile(file.get()) : kFileOpenError;
}

void KOVAOptions::DumpOptions(KOVAStreamFormatter& formatter) {
    formatter << "Options currently present and there values are given below : " << formatter.newline
              << "============================================================= " << formatter.newline;
    KOVAOption* option = nullptr;
    InitEnumeration();
    while (GetNext(option).IsSuccess()) {
        formatter << "The Option " << option->name_ << " value is\t\t=";
        switch (option->storedType()) {
        case KOVAValue::Int: dumpAs<int>(formatter, *option); break;
        case KOVAValue::Bool: dumpAs<bool>(formatter, *option); break;
        case KOVAValue::Double: dumpAs<double>(formatter, *option); break;
        case KOVAValue::String: dumpAs<KOVAString>(formatter, *option); break;
        case KOVAValue::Unknown: break;
        }
        formatter << formatter.newline;
    }
}

void KOVAOptions::Dump(char const* title, char const* prefix, char const* suffix) {
    auto const orEmpty = [](char const* text) { return text ? text : ""; };
    if (title)
        KOVAInfo::PrintfAsItIs("%s", title);
    InitEnumeration();
    for (KOVAOption* option = nullptr; GetNext(option).IsSuccess() && option;) {
        KOVAString value;
        option->current_.GetValue(value);
        KOVAInfo::PrintfAsItIs("%s%s=%s%s", orEmpty(prefix), static_cast<char const*>(option->name_), orEmpty(value),
                               orEmpty(suffix));
    }
}
