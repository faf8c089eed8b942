#pragma once

#include "tests/db/browser_model.h"

#include <memory>
#include <string>

namespace test {

/// An object of a tree of classes.
struct Model_Object {
    std::string title;
    unsigned class_a = 0;
    unsigned magic = 0;
    int parent = -1;
    bool selected = false;
    std::vector<int> children;
};

/// The list of a tree of classes in one dimension. The first object is the root.
class Class_Model : public Browser_Model {
public:
    Class_Model(int dimension, std::vector<Model_Object> tree) : objects(std::move(tree)), dimension_(dimension) {}

    std::vector<Model_Object> objects;
    int shown = -1; ///< the object in the window

protected:
    void make_rows() override { append(0, 0); }
    void read_host() override;
    void write_host() override;
    void empty_windows() override { shown = -1; }

private:
    int dimension_;

    void append(int object, int level);
    bool is_selectable(const Model_Row& row) const;
    void select_with_ancestors(int object);
    const Model_Object& object_of(const Model_Row& row) const { return objects[static_cast<size_t>(row.object)]; }
};

struct Model_File {
    std::string directory;
    std::vector<bool> frame_is_accessible;
};

/// An object that shows a frame.
struct Model_View {
    int file;
    int frame;
    bool left_out; ///< its parent takes part in nothing
    bool selected = false;
};

/// The list of files.
class File_Model : public Browser_Model {
public:
    std::vector<Model_File> files;
    std::vector<Model_View> views; ///< in the order of the tree

protected:
    void make_rows() override;
    void read_host() override;
    void write_host() override;
    void empty_windows() override {}

private:
    std::vector<std::pair<int, int>> frames_; // of the rows' objects: file and frame

    bool shows(const Model_View& view, const Model_Row& row) const;
};

}
