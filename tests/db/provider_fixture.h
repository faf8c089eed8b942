#pragma once

#include "db/tool_db_list.h"
#include "tests/db/own_tree.h"
#include "tests/support/reports.h"

#include <gtest/gtest.h>

namespace test {

using Lines = std::vector<std::string>;

/// Objects of a test's own, for a list that is made without a window.
class Providers : public ::testing::Test {
protected:
    Providers() { own_tree::reset(); }
    ~Providers() override { own_tree::reset(); }

    template <class Panel>
    int build(Panel& panel)
    {
        panel.List_Free(&panel);
        return panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr);
    }

    static Lines titles_of(const Tool_DB_List& panel)
    {
        Lines result;
        for (int i = 0; i < panel.nb; ++i)
            result.push_back(panel.list_pt[i].title ? panel.list_pt[i].title : "-");
        return result;
    }

    Reports reports;
};

}
