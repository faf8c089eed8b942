#pragma once

#include "workbench/document/volume.h"
#include "workbench/model/tree_names.h"
#include "workbench/model/tree_objects.h"

#include <algorithm>
#include <vector>

namespace workbench {

/// The studies of one tree, each of which holds what belongs to it until it is moved elsewhere.
template <class Tree>
class StudyFolders {
public:
    StudyFolders(TreeObjects& objects, unsigned studyClass) : objects_(objects), class_(studyClass) {}

    /// That of a volume; made when there is none, or it was taken out of the tree.
    Tree* of(const document::Volume& volume)
    {
        const std::string key = keyOfStudy(volume);
        for (const Study& study : studies_)
            if (study.key == key && TreeObjects::isListed(study.object))
                return study.object;
        studies_.push_back({key, nullptr});
        studies_.back().object = objects_.add(
            TreeObjects::root<Tree>(), {nameOfStudy(volume), "Study", class_, 0, class_, "icon study.tga"});
        return studies_.back().object;
    }

    /// Removes those that are empty and to which nothing that is open belongs. @param isOpen  of a study's key
    template <class Predicate>
    void removeEmpty(const Predicate& isOpen)
    {
        std::erase_if(studies_, [&](const Study& study) {
            if (study.object && (isOpen(study.key) || study.object->Child_Get_Nb() > 0))
                return false;
            objects_.remove(study.object);
            return true;
        });
    }

private:
    struct Study {
        std::string key;
        Tree* object;
    };

    TreeObjects& objects_;
    unsigned class_;
    std::vector<Study> studies_;
};

}
