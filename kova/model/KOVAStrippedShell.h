#pragma once

#include <kova/model/KOVASurfacicShell.h>

/// A shell whose face list is one of triangle strips.
class KOVA_API KOVAStrippedShell : public KOVASurfacicShell {
public:
    using KOVASurfacicShell::KOVASurfacicShell;
    KOVAStrippedShell(KOVAStrippedShell const&) = default;
    KOVAStrippedShell& operator=(KOVAStrippedShell const&) = default;
    ~KOVAStrippedShell() override;

    int IsStripped() const override;
};
