#pragma once

#include "tests/workbench/document/fixtures.h"
#include "tests/workbench/shell/shell_test.h"
#include "workbench/shell/database_dock.h"

#include <string>

/// What the database's tests share: a workbench with series that were written for it.
namespace test {

constexpr int studyLevel = 1, seriesLevel = 2, frameLevel = 3;

/// Slices with a round shape that is larger further up. @param study  its UID: "1.2" is of a head
void writeSeries(const document_test::Folder& folder, const std::string& study, const std::string& name, int number,
    const std::string& modality, int slices);

class Database : public Shell {
protected:
    /// Opens two studies with three series of 1, 6 and 4 slices.
    void browse();

    int row(int level, int behind = -1) const; ///< the next one of a level in the list of images
    void click(int at);                        ///< on a row of the list that is seen
    void choose(int dimension);                ///< the tree that is listed

    /// "1020": 2 for the selected, 1 for those in part.
    static std::string selected(const Tool_DB_List& of);

    document_test::Folder folder;
    workbench::DatabaseDock& dock = window.database();
    const Tool_DB_Class& list = dock.classes();
};

}
