#include "outofmemory/scarcememory.h"

#include <cerrno>
#include <dlfcn.h>
#include <new>

namespace ovrano::outofmemory {

namespace {

// Plain variables: memory is asked for before and after everything else lives. What the toolkit's own threads
// ask for is neither refused nor counted.
thread_local bool isScarce = false;
thread_local bool isPassing = false; // what an allocation asks for in turn is not counted again
bool refusesAll = false;
int firstRefused = 0;
int askedFor = 0;
int refusedSoFar = 0;

bool isRefused(std::size_t bytes) {
    if (!isScarce || isPassing || bytes < ScarceMemory::Large)
        return false;
    const int index = askedFor++;
    const bool refused = refusesAll ? index >= firstRefused : index == firstRefused;
    refusedSoFar += refused ? 1 : 0;
    return refused;
}

/// The function that would have been called without this file; found once, without any memory.
template<typename Function>
Function* next(Function*& known, const char* name) {
    if (!known)
        known = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    return known;
}

void* noMemory() {
    errno = ENOMEM;
    return nullptr;
}

template<typename Real>
void* takeNew(std::size_t bytes, Real&& real) {
    if (isRefused(bytes))
        throw std::bad_alloc();
    const bool before = isPassing;
    isPassing = true;
    void* memory = nullptr;
    try {
        memory = real();
    } catch (...) {
        isPassing = before;
        throw;
    }
    isPassing = before;
    return memory;
}

} // namespace

ScarceMemory::ScarceMemory(int first, Refused refused) {
    firstRefused = first;
    refusesAll = refused == Refused::AllFromThere;
    askedFor = refusedSoFar = 0;
    isScarce = true;
}

ScarceMemory::~ScarceMemory() {
    isScarce = false;
}

int ScarceMemory::asked() const {
    return askedFor;
}

bool ScarceMemory::hasRefused() const {
    return refusedSoFar > 0;
}

// Names of their own, bound to the system's names by the assembler: see watchedcalls.cpp.
extern "C" {

using Allocate = void*(std::size_t);
using AllocateMany = void*(std::size_t, std::size_t);
using Reallocate = void*(void*, std::size_t);
using AllocateInto = int(void**, std::size_t, std::size_t);

void* scarceMalloc(std::size_t bytes) __asm__("malloc");
void* scarceMalloc(std::size_t bytes) {
    static Allocate* known;
    return isRefused(bytes) ? noMemory() : next(known, "malloc")(bytes);
}

void* scarceCalloc(std::size_t count, std::size_t bytes) __asm__("calloc");
void* scarceCalloc(std::size_t count, std::size_t bytes) {
    static AllocateMany* known;
    return isRefused(count * bytes) ? noMemory() : next(known, "calloc")(count, bytes);
}

void* scarceRealloc(void* memory, std::size_t bytes) __asm__("realloc");
void* scarceRealloc(void* memory, std::size_t bytes) {
    static Reallocate* known;
    return isRefused(bytes) ? noMemory() : next(known, "realloc")(memory, bytes);
}

void* scarceAlignedAlloc(std::size_t alignment, std::size_t bytes) __asm__("aligned_alloc");
void* scarceAlignedAlloc(std::size_t alignment, std::size_t bytes) {
    static AllocateMany* known;
    return isRefused(bytes) ? noMemory() : next(known, "aligned_alloc")(alignment, bytes);
}

int scarceMemalign(void** memory, std::size_t alignment, std::size_t bytes) __asm__("posix_memalign");
int scarceMemalign(void** memory, std::size_t alignment, std::size_t bytes) {
    static AllocateInto* known;
    return isRefused(bytes) ? ENOMEM : next(known, "posix_memalign")(memory, alignment, bytes);
}

// The sanitizers' own operators do not come through malloc.
void* scarceNew(std::size_t bytes) __asm__("_Znwm");
void* scarceNew(std::size_t bytes) {
    static Allocate* known;
    return takeNew(bytes, [&] { return next(known, "_Znwm")(bytes); });
}

void* scarceNewArray(std::size_t bytes) __asm__("_Znam");
void* scarceNewArray(std::size_t bytes) {
    static Allocate* known;
    return takeNew(bytes, [&] { return next(known, "_Znam")(bytes); });
}

} // extern "C"

} // namespace ovrano::outofmemory
