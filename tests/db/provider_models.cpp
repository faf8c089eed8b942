#include "tests/db/provider_models.h"

namespace test {

// -------------------------------------------------------------------------------------------------------- classes

void Class_Model::append(int object, int level)
{
    const Model_Object& listed = objects[static_cast<size_t>(object)];
    if (dimension_ == 2 && listed.title == "Cuda_Volume")
        return;
    Model_Row row;
    row.level = level;
    row.object = object;
    row.leaf = listed.children.empty();
    row.accessible = !row.leaf || listed.class_a == static_cast<unsigned>(dimension_) * 0x1000 + 0xFFF;
    row.select = row.leaf && listed.selected ? 2 : 0;
    row.children = static_cast<int>(listed.children.size());
    if (dimension_ == 2 && listed.title.substr(0, 6) == "Acquis") {
        row.open = row.leaf = false;
        row.accessible = true;
    }
    const bool lists_children = dimension_ != 2 || listed.class_a != 0x2FFD;
    if (!lists_children)
        row.children = 0;
    rows.push_back(row);
    for (size_t k = 0; lists_children && k < listed.children.size(); ++k)
        append(objects[static_cast<size_t>(object)].children[k], level + 1);
}

bool Class_Model::is_selectable(const Model_Row& row) const
{
    return row.leaf && row.accessible && (dimension_ != 2 || object_of(row).magic == 0xAABA);
}

void Class_Model::read_host()
{
    for (Model_Row& row : rows) {
        if (is_selectable(row))
            row.select = object_of(row).selected ? 2 : row.select & ~2;
    }
}

void Class_Model::select_with_ancestors(int object)
{
    for (int up = object; up >= 0; up = objects[static_cast<size_t>(up)].parent)
        objects[static_cast<size_t>(up)].selected = true;
}

void Class_Model::write_host()
{
    for (Model_Object& object : objects)
        object.selected = false;
    int uppermost = -1;
    for (const Model_Row& row : rows) {
        if (!is_selectable(row) || !(row.select & 2))
            continue;
        select_with_ancestors(row.object);
        uppermost = uppermost < 0 ? row.object : uppermost;
    }
    if (dimension_ == 2 && uppermost >= 0) {
        shown = uppermost;
        send(0x200000);
    }
    send(dimension_ == 1 ? 0x101 : dimension_ == 2 ? 0x102 : 0x104);
}

// ---------------------------------------------------------------------------------------------------------- files

void File_Model::make_rows()
{
    frames_.clear();
    const auto append = [this](int level, int children) {
        Model_Row row;
        row.level = level;
        row.children = children;
        row.leaf = level == 2;
        rows.push_back(row);
    };
    size_t directory = 0;
    for (size_t i = 0; i < files.size(); ++i) {
        const Model_File& file = files[i];
        if (i == 0 || file.directory != files[i - 1].directory) {
            directory = rows.size();
            append(0, 0);
        }
        ++rows[directory].children;
        append(1, static_cast<int>(file.frame_is_accessible.size()));
        for (size_t k = 0; k < file.frame_is_accessible.size(); ++k) {
            append(2, 0);
            rows.back().object = static_cast<int>(frames_.size());
            rows.back().select = file.frame_is_accessible[k] ? 0 : 16;
            frames_.emplace_back(static_cast<int>(i), static_cast<int>(k));
        }
    }
}

bool File_Model::shows(const Model_View& view, const Model_Row& row) const
{
    return !view.left_out && row.level == 2 &&
           frames_[static_cast<size_t>(row.object)] == std::pair{view.file, view.frame};
}

void File_Model::read_host()
{
    for (const Model_View& view : views) {
        for (Model_Row& row : rows) {
            if (shows(view, row))
                row.select = view.selected ? 2 : row.select & ~2;
        }
    }
}

void File_Model::write_host()
{
    for (Model_View& view : views) {
        for (const Model_Row& row : rows) {
            const bool wanted = (row.select & 2) != 0;
            if (!shows(view, row) || view.selected == wanted)
                continue;
            view.selected = wanted;
            send(0x102);
        }
    }
}

}
