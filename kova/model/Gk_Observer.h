#pragma once

#include <kova/core/export.h>

/// Base of what the older layer calls back.
class KOVA_API Gk_Observer {
public:
    virtual ~Gk_Observer();

    /// Tells the kinds of observers apart.
    virtual int getType() const = 0;

protected:
    Gk_Observer() = default;
    Gk_Observer(Gk_Observer const&) = default;
    Gk_Observer& operator=(Gk_Observer const&) = default;
};
