#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAOptions.h>
#include <kova/public/KOVIObjectImpl.h>
#include <kova/text/KOVAString.h>

class KOVIFileImpl;

/// The body of a set of options.
class KOVA_API KOVIOptionsImpl : public KOVIObjectImpl {
public:
    explicit KOVIOptionsImpl(char const* tag) : KOVIObjectImpl(tag) {}
    ~KOVIOptionsImpl() override;

    /// Reads the stream of a file that is open, else the file of that path.
    KOVIResult Load(KOVIFileImpl& file);
    /// Registers the name and adds an option of it.
    KOVIResult Add(KOVAString const& name, KOVAValue const& value);
    int GetOptionsCount() const noexcept { return options_.Size(); }
    /// Positions in their order cost no search.
    KOVIResult GetOptionAt(int index, KOVAString& name, KOVAValue& value);

    /// The set itself, which lives as long as the body. Always Success.
    KOVIResult GetOptions(KOVAOptions const*& options) const;

private:
    KOVAOptions options_;
    std::int32_t next_ = 0; ///< the position that the enumeration of the set gives next
};
