#pragma once

#include <kova/units/KOVAUnit.h>

/// The units that hold for the whole process besides those of the sending and the receiving system. Nothing
/// is checked. All operations are static.
class KOVA_API KOVAUnitValue {
public:
    /// The unit of the file that is read; unknown at first.
    static KOVAUnit GetReadUnit() noexcept;
    static void SetReadUnit(KOVAUnit unit) noexcept;
    /// The unit that the application works in; the model unit at first.
    static KOVAUnit GetApplicationUnit() noexcept;
    static void SetApplicationUnit(KOVAUnit unit) noexcept;
    /// The unit of files that are written; the model unit at first.
    static KOVAUnit GetWriteUnit() noexcept;
    static void SetWriteUnit(KOVAUnit unit) noexcept;
    /// The unit of files that state none; unknown at first.
    static KOVAUnit GetUnitWhenUnspecified() noexcept;
    static void SetUnitWhenUnspecified(KOVAUnit unit) noexcept;
    /// What api_set_read_unit_callback was given last; null at first.
    static KOVAReadUnitCallback GetReadUnitCallback() noexcept;

    /// As GetUnitName, but "MODEL UNIT", and with Success for every unit. Error Encountered for a number that
    /// is none; nothing is written then.
    static KOVIResult GetUnitAsString(KOVAUnit unit, KOVAString& text);
};
