#include "db/edit_layout.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

// Where the rows of a diagram are, against a second statement of the rules that goes through the tree.

namespace {

struct Node {
    bool folded = false;
    std::vector<int> children; // their rows
    int line = DB_List::hidden_line;
};

struct Diagram_Tree {
    std::vector<DB_List> rows;
    std::vector<Node> nodes;
    int lines = 0;

    int nb() const { return static_cast<int>(rows.size()); }
    const Node& node(int row) const { return nodes[static_cast<size_t>(row)]; }

    void show(int row, int line)
    {
        Node& shown = nodes[static_cast<size_t>(row)];
        shown.line = line;
        for (size_t k = 0; k < shown.children.size(); ++k) {
            if (k == 0)
                show(shown.children[k], line);
            else if (!shown.folded)
                show(shown.children[k], lines++);
        }
    }
};

// @param deeper how likely, of 100, a row is below the one before it
Diagram_Tree random_tree(std::mt19937& random, int size, int deeper, int folded)
{
    const auto chance = [&](int percent) { return static_cast<int>(random() % 100) < percent; };
    Diagram_Tree tree;
    tree.rows.resize(static_cast<size_t>(size));
    tree.nodes.resize(static_cast<size_t>(size));
    std::vector<int> above; // the row before and what it lies in
    for (int i = 0; i < size; ++i) {
        while (above.size() > 1 && !chance(deeper))
            above.pop_back();
        DB_List& row = tree.rows[static_cast<size_t>(i)];
        row.level = static_cast<unsigned short>(above.size());
        tree.nodes[static_cast<size_t>(i)].folded = chance(folded);
        row.state = tree.node(i).folded ? 0 : DB_List::expanded;
        if (!above.empty()) {
            const int parent = above.back();
            row.parent = static_cast<unsigned short>(parent);
            ++tree.rows[static_cast<size_t>(parent)].nb_child;
            tree.nodes[static_cast<size_t>(parent)].children.push_back(i);
        }
        for (const int outer : above)
            ++tree.rows[static_cast<size_t>(outer)].nb_desc;
        above.push_back(i);
    }
    tree.lines = 1;
    tree.show(0, 0);
    return tree;
}

}

TEST(DiagramLayout, LinesAreThoseOfTheTree)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        auto tree = random_tree(random, 1 + static_cast<int>(random() % 60), 20 + round % 70, round % 50);
        const auto size = db::number_diagram(tree.nb(), tree.rows.data());
        int deepest = 0;
        for (int i = 0; i < tree.nb(); ++i) {
            const DB_List& row = tree.rows[static_cast<size_t>(i)];
            EXPECT_EQ(row.line, tree.node(i).line) << "round " << round << " row " << i;
            if (row.line != DB_List::hidden_line)
                deepest = std::max<int>(deepest, row.level);
        }
        EXPECT_EQ(size.lines, tree.lines);
        EXPECT_EQ(size.deepest, deepest);
    }
}

TEST(DiagramLayout, EveryRowIsFoundInItsPlaceAndNoOther)
{
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        auto tree = random_tree(random, 1 + static_cast<int>(random() % 60), 20 + round % 70, round % 60);
        const auto size = db::number_diagram(tree.nb(), tree.rows.data());
        std::vector<std::vector<int>> places(
            static_cast<size_t>(size.lines + 1), std::vector<int>(static_cast<size_t>(size.deepest + 2), -1));
        for (int i = 0; i < tree.nb(); ++i) {
            if (tree.node(i).line != DB_List::hidden_line)
                places[static_cast<size_t>(tree.node(i).line)][tree.rows[static_cast<size_t>(i)].level] = i;
        }
        for (int line = 0; line <= size.lines; ++line) {
            for (int level = 0; level <= size.deepest + 1; ++level)
                EXPECT_EQ(db::row_in_diagram(line, level, tree.nb(), tree.rows.data()),
                    places[static_cast<size_t>(line)][static_cast<size_t>(level)])
                    << "round " << round << " line " << line << " level " << level;
        }
    }
}

TEST(DiagramLayout, PlacesOutsideHitNothing)
{
    std::mt19937 random(3);
    auto tree = random_tree(random, 30, 60, 20);
    db::number_diagram(tree.nb(), tree.rows.data());
    for (const db::List_Point place : {db::List_Point{-400, 30}, {100, -60}, {100, 1000000}, {10000000, 30}})
        EXPECT_EQ(db::hit_in_diagram(place, tree.nb(), tree.rows.data()), 0);
    EXPECT_EQ(db::row_in_diagram(0, 0, 0, tree.rows.data()), -1);
    EXPECT_EQ(db::row_in_diagram(0, 0, 8, nullptr), -1);
    EXPECT_EQ(db::row_in_diagram(DB_List::hidden_line, 1, tree.nb(), tree.rows.data()), -1);
}

// The children's handle of a leaf, a single fold handle and the root's parent are not there.
TEST(DiagramLayout, HandlesAreThereForThoseThatHaveThem)
{
    std::vector<DB_List> rows(4); // a root with a class, which has two leaves
    const unsigned short levels[] = {0, 1, 2, 2}, parents[] = {0, 0, 1, 1}, children[] = {1, 2, 0, 0},
                         below[] = {3, 2, 0, 0};
    for (size_t i = 0; i < rows.size(); ++i) {
        rows[i].level = levels[i];
        rows[i].parent = parents[i];
        rows[i].nb_child = children[i];
        rows[i].nb_desc = below[i];
        rows[i].state = DB_List::expanded;
    }
    db::number_diagram(4, rows.data());
    const auto hit = [&](int x, int y) { return db::hit_in_diagram({x, y}, 4, rows.data()); };
    EXPECT_EQ(hit(0, 30), 0) << "the root's left edge is its box";
    EXPECT_EQ(hit(250, 30), 2);
    EXPECT_EQ(hit(290, 30), 0) << "an only child is not folded away";
    EXPECT_EQ(hit(330, 30), 11);
    EXPECT_EQ(hit(330 + 250, 30), 12);
    EXPECT_EQ(hit(330 + 290, 30), 13);
    EXPECT_EQ(hit(660 + 250, 30), 20) << "the box of a leaf";
    EXPECT_EQ(hit(660 + 251, 30), 0);
    EXPECT_EQ(hit(660 + 290, 30), 0);
    EXPECT_EQ(hit(660, 80), 31);
    EXPECT_EQ(hit(660 + 125, 65), 30);
}

TEST(DiagramLayout, TheLargestListHasNumbersInFull)
{
    constexpr int most = 65535;
    std::vector<DB_List> rows(most);
    rows[0].state = DB_List::expanded;
    rows[0].nb_child = rows[0].nb_desc = most - 1;
    for (size_t i = 1; i < rows.size(); ++i)
        rows[i].level = 1;
    EXPECT_EQ(db::number_diagram(most, rows.data()).lines, most - 1);
    EXPECT_EQ(rows.back().line, most - 2);
    EXPECT_EQ(db::hit_in_diagram({330 + 100, 50 * (most - 2) + 30}, most, rows.data()), 10 * (most - 1));
    rows[0].state = 0;
    EXPECT_EQ(db::number_diagram(most, rows.data()).lines, 1);
    EXPECT_EQ(db::row_in_diagram(0, 1, most, rows.data()), 1);
    EXPECT_EQ(db::row_in_diagram(1, 1, most, rows.data()), -1);
}
