#include <kova/model/KOVACallbackShared.h>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/model/KOVAEntityCallback.h>

bool (*KOVACallbackShared::m_AbortCallback)() = nullptr;

bool KOVACallbackShared::IsAborted() {
    bool const requested = Gk_ErrMgr::shouldAbort();
    bool const wanted = m_AbortCallback && m_AbortCallback();
    if (requested || wanted)
        throw KOVAAbortException();
    return false;
}

Gk_Observer::~Gk_Observer() = default;

int KOVAEntityCallback::getType() const {
    return 4;
}
