#pragma once

#include <kova/containers/hash_index.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

/// A named set of entities of the caller, told apart by their addresses. Copies have members of their own.
class KOVA_API KOVASelectionSet {
public:
    KOVASelectionSet(KOVAString const& name, bool current);
    KOVASelectionSet(KOVASelectionSet const& other);
    KOVASelectionSet& operator=(KOVASelectionSet const& other);
    virtual ~KOVASelectionSet();

    KOVAString GetName() const { return name_; }
    /// It is the selection that is in use.
    bool IsCurrent() const noexcept { return current_; }

    /// Failure for null; Success also for what is a member already.
    KOVIResult AddMember(void* entity);
    bool IsMember(void* entity) const;

private:
    KOVAString name_;
    bool current_;
    kova::detail::HashSet<void*> members_;
};
