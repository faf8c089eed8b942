#pragma once

#include "host/structures.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace hostkit {
class Pixel_Store;
struct Open_File;
}

// What the host keeps of an object. Children belong to their parent.
struct Strato::Record {
    unsigned magic = 0;
    unsigned class_a = 0;
    unsigned class_b = 0;
    std::string name;
    std::string title;
    std::map<const void*, unsigned long long> flags;
    Strato* parent = nullptr; // that it says it has
    Strato* holder = nullptr; // among whose children it is
    std::vector<Strato*> children;
    std::shared_ptr<hostkit::Pixel_Store> pixels; // of a series and its frames
    int index = 0; // among the holder's children, when it was last looked for: ask Child_Place
    const char* icon = nullptr;
    std::shared_ptr<const hostkit::Open_File> file; // that has what the object shows
    unsigned short frame = 0;                       // which of its images
    void (*destroy)(Strato*) = nullptr;
};
