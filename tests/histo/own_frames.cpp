#include "tests/histo/own_frames.h"

#include <bit>
#include <cstdio>
#include <map>
#include <utility>

namespace {

using own_frames::Frame;

struct Iterator {
    size_t next = 0;
    bool traced = false;
};

std::vector<Frame*> frames;
std::map<unsigned short, Iterator> iterators;
std::set<int> failing;
int begun = 0;
std::vector<std::string> calls;

std::string described(unsigned class_mask, const void* scope, unsigned char selected_only)
{
    char text[100];
    std::snprintf(text, sizeof text, "next 0x%x %p %s", class_mask, scope, selected_only ? "selected" : "all");
    return text;
}

}

namespace own_frames {

Frame::Frame(const Histo_Record* shown, const char* its_unit) : Strato_2D_Frame(nullptr), histogram(shown)
{
    unit = const_cast<char*>(its_unit);
}

int Frame::Value_Get(const Vector_4& position)
{
    asked_at = position;
    return raw;
}

int raw_of(float grey)
{
    return std::bit_cast<int>(grey);
}

void show(std::vector<Frame*> shown)
{
    frames = std::move(shown);
}

void fail_to_open(std::set<int> which)
{
    failing = std::move(which);
    begun = 0;
}

std::vector<std::string> take_calls()
{
    return std::exchange(calls, {});
}

int open_iterators()
{
    return static_cast<int>(iterators.size());
}

}

// ------------------------------------------------------------------------------------- what the panels call

Strato::Strato(Record* record) : record_(record) {}
Strato::~Strato() = default;

const char* Strato::Icon_Get() const
{
    return nullptr;
}

const Histo_Record* Strato_2D_Frame::Histogram_Get()
{
    return static_cast<Frame*>(this)->histogram;
}

int Strato_2D_Frame::Value_Get(const Vector_4&)
{
    return no_value;
}

float Fct_GLI_2_Float(Strato_2D_Frame*, int raw)
{
    return std::bit_cast<float>(raw);
}

unsigned short Iterator_Init(const char* owner, Strato* start)
{
    calls.push_back(std::string("begin ") + owner + (start ? " below an object" : ""));
    if (failing.contains(++begun))
        return 0;
    unsigned short id = 1;
    while (iterators.contains(id))
        ++id;
    iterators[id] = {};
    return id;
}

Strato_2D* Iterator_Class_2D(unsigned short id, unsigned class_mask, void* scope, unsigned char selected_only)
{
    Iterator& iterator = iterators.at(id);
    if (!std::exchange(iterator.traced, true))
        calls.push_back(described(class_mask, scope, selected_only));
    while (iterator.next < frames.size()) {
        Frame* const frame = frames[iterator.next++];
        if (frame->selected || !selected_only)
            return frame;
    }
    return nullptr;
}

void Iterator_End(unsigned short id)
{
    iterators.erase(id);
    calls.push_back("end");
}
