#pragma once

#include <kova/core/export.h>

/// A text token that is not owned (in practice a literal), with a comparison that knows markers.
class KOVA_API Gk_Marker {
public:
    Gk_Marker(char const* token = nullptr) noexcept : token_(token) {}

    char const* token() const noexcept { return token_; }

    /// Exact and byte-wise; a null token equals only a null token and orders first.
    bool operator==(Gk_Marker const& other) const noexcept;
    bool operator<(Gk_Marker const& other) const noexcept;

    /// -1, 0 or 1 ignoring case; "#" is skipped in either token. A token that ends first is taken as
    /// equal where a "#" is unmatched: in either token when this one ends ("ab#" and "abc" give 0), in
    /// this one when the other ends ("abc" and "ab#" give -1). Callers depend on that, and on the
    /// reversed sense of the ends: the shorter token orders after the longer one.
    int compare(Gk_Marker const& other) const noexcept;

private:
    char const* token_;
};
