#pragma once

#include <kova/core/export.h>

/// Root of the objects that know their type's name.
class KOVA_API KOVAObject {
public:
    /// Keeps a copy of the name; none for a null or empty one.
    explicit KOVAObject(char const* typeName);
    KOVAObject(KOVAObject const&) = delete;
    KOVAObject& operator=(KOVAObject const&) = delete;

    /// The name is this object's type name, to the letter.
    virtual bool IsKindOf(char const* name);
    virtual ~KOVAObject();

    /// The type name, owned by the object and not to be written to; may be null.
    char* GetTypeName() { return typeName_; }

private:
    char* typeName_;
};

/// Deletes the object and sets the pointer to null; nothing for a null pointer.
KOVA_API void DeleteKOVAObject(KOVAObject*& object);
