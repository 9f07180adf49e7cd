#pragma once

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

/// Splits a text at each delimiter.
///
///     KOVAStringTokenizer fields("a,,b,", ',');      // "a", "", "b", ""
///
/// Delimiters side by side, and one at the end, have an empty token (the null string) between and behind
/// them. An empty text has no token. Copies share the tokens.
class KOVA_API KOVAStringTokenizer {
public:
    KOVAStringTokenizer(KOVAString const& text, unsigned short delimiter);
    KOVAStringTokenizer(char const* text, unsigned short delimiter);

    int GetTokenCount() const { return tokens_.size(); }
    /// Failure when there is no token i; out is then left alone.
    KOVIResult GetToken(int i, KOVAString& out) const;

private:
    KOVADynamicArray<KOVAString> tokens_;
};
