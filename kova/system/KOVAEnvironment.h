#pragma once

#include <type_traits>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAProperties.h>
#include <kova/text/KOVAString.h>

/// The process's environment variables.
///
///     KOVAString level;
///     if (KOVAEnvironment::GetVariable("KOVALogLevel", level).IsSuccess()) ...
///
/// Names are compared ignoring case, on every platform. One thread at a time.
class KOVA_API KOVAEnvironment : public KOVAProperties {
public:
    /// All variables as they were at the first call, as properties; made then, and never again.
    static KOVAEnvironment const* GetEnv();

    /// The variable's text, everything behind the first "=" of its entry. Failure when there is none; the
    /// output is then left alone.
    static KOVIResult GetVariable(KOVAString const& name, KOVAString& value);
    /// True for "True", "Yes" and "On" in any case, false for any other text and for a missing variable. The
    /// result is that of reading the text.
    static KOVIResult GetVariable(KOVAString const& name, bool& value);

    /// Sets a variable and reports it as a message. Callers depend on the text "name=value" being formatted
    /// once more on its way: "%%" in it becomes "%". Failure for a text of 32768 characters or more, and
    /// when the system refuses. An empty value takes the variable away on Windows.
    static KOVIResult PutVariable(KOVAString const& name, KOVAString const& value);
    /// A number would be taken for one character.
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    static KOVIResult PutVariable(KOVAString const& name, Number value) = delete;

    /// Adds the arguments of main, the program's name first, as texts. On Windows they are the system's own, which
    /// hold every character of a file's name, where main has only those of the code page; "*" and "?" become the names
    /// that match, as shells do it elsewhere.
    static void GetArguments(int argc, char const* const* argv, KOVADynamicArray<KOVAString>& arguments);

private:
    KOVAEnvironment();

    KOVA_LOCAL static KOVAEnvironment* _pVariables;
};
