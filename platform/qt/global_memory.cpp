#include "platform/windows_api.h"

#include <algorithm>
#include <cstdlib>
#include <new>

// Memory behind handles. It never moves here; whoever forgets to lock it has no address all the same.

namespace {

struct Block {
    void* bytes;
    unsigned locks;
};

Block* to_block(HGLOBAL memory)
{
    return static_cast<Block*>(memory);
}

}

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes)
{
    if ((flags & GMEM_MOVEABLE) == 0)
        return nullptr;
    const SIZE_T size = std::max<SIZE_T>(bytes, 1);
    void* const content = flags & GMEM_ZEROINIT ? std::calloc(size, 1) : std::malloc(size);
    auto* const block = content ? new (std::nothrow) Block{content, 0} : nullptr;
    if (!block)
        std::free(content);
    return block;
}

LPVOID GlobalLock(HGLOBAL memory)
{
    if (!memory)
        return nullptr;
    ++to_block(memory)->locks;
    return to_block(memory)->bytes;
}

BOOL GlobalUnlock(HGLOBAL memory)
{
    return memory && to_block(memory)->locks > 0 && --to_block(memory)->locks > 0;
}

HGLOBAL GlobalFree(HGLOBAL memory)
{
    if (memory)
        std::free(to_block(memory)->bytes);
    delete to_block(memory);
    return nullptr;
}
