#include <kova/containers/KOVAStack.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAStack) == 8);

KOVAStack::KOVAStack() = default;

KOVAStack::KOVAStack(KOVAStack const& other) : entries_(other.entries_.copy()) {}

KOVAStack& KOVAStack::operator=(KOVAStack const& other) {
    if (this != &other)
        entries_ = other.entries_.copy();
    return *this;
}

KOVAStack::~KOVAStack() = default;

int KOVAStack::Size() const {
    return entries_.size();
}

int KOVAStack::Push(void* v) {
    entries_.add(v);
    return entries_.size();
}

void* KOVAStack::Pop() {
    void* const top = GetTop();
    if (!IsEmpty())
        entries_.removeAt(entries_.size() - 1);
    return top;
}

void* KOVAStack::GetTop() const {
    return IsEmpty() ? nullptr : entries_[entries_.size() - 1];
}

bool KOVAStack::IsEmpty() const {
    return entries_.size() == 0;
}

void* KOVAStack::ElementAt(int i) const {
    return entries_[i];
}
