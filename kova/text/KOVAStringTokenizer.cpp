#include <kova/text/KOVAStringTokenizer.h>

#include <kova/core/results.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAStringTokenizer) == 4);

KOVAStringTokenizer::KOVAStringTokenizer(KOVAString const& text, unsigned short delimiter) {
    if (text.length() == 0)
        return;
    int from = 0;
    for (int at = text.indexOf(delimiter, from); at >= 0; at = text.indexOf(delimiter, from)) {
        tokens_.add(text.substring(from, at));
        from = at + 1;
    }
    tokens_.add(text.substring(from));
}

KOVAStringTokenizer::KOVAStringTokenizer(char const* text, unsigned short delimiter)
    : KOVAStringTokenizer(KOVAString(text), delimiter) {}

KOVIResult KOVAStringTokenizer::GetToken(int i, KOVAString& out) const {
    if (i < 0 || i >= tokens_.size())
        return kova::detail::kFailure;
    out = tokens_[i];
    return kova::detail::kSuccess;
}
