#pragma once

#include <kova/core/export.h>
#include <kova/model/Gk_Observer.h>

/// The observer that is called for each entity of a translation.
class KOVA_API KOVAEntityCallback : public Gk_Observer {
public:
    /// 4.
    int getType() const override;
};
