#include "workbench/model/tag_names.h"

#include "hostkit/structures/segmentation.h"

#include <utility>

namespace workbench {

std::vector<Renaming> TagNames::takeChanges()
{
    known_.resize(hostkit::most_tags);
    std::vector<Renaming> changes;
    for (unsigned tag = 0; tag < hostkit::most_tags; ++tag) {
        const char* label = hostkit::Tag_Label(tag);
        const std::string name = label ? label : "";
        if (name != known_[tag])
            changes.push_back({tag, std::exchange(known_[tag], name), name});
    }
    return changes;
}

}
