#include "db/tool_db_file.h"

#include "db/frame_rows.h"
#include "db/selection.h"
#include "frame/change_flags.h"
#include "frame/iterator_2d.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "host/structures.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

namespace change = frame::change;

namespace {

constexpr const char* source = "tool_db_file";
constexpr COLORREF white = 0x00FFFFFF;

// ----------------------------------------------------------------------------------------------------- descriptions

constexpr unsigned short code(const char (&letters)[3])
{
    return static_cast<unsigned short>(letters[0] << 8 | letters[1]);
}

const char* modality_icon(unsigned short modality)
{
    switch (modality) {
    case code("CT"):
        return "modality ct.tga";
    case code("MR"):
        return "modality mr.tga";
    case code("NM"):
    case code("PT"):
    case code("ST"):
        return "modality nm.tga";
    case code("CR"):
    case code("PX"):
    case code("RG"):
        return "modality rx.tga";
    case code("US"):
        return "modality us.tga";
    case code("PH"):
    case code("SC"):
        return "modality ph.tga";
    case code("XA"):
        return "modality xa.tga";
    default:
        return "modality ot.tga";
    }
}

// A volume that goes on in time has, deliberately, the icon of an image.
const char* frame_icon(const Frame_Record& frame)
{
    constexpr unsigned short scout = 16;
    const bool deep = frame.images_z > 1, timed = frame.images_t > 1;
    if (frame.flags & scout)
        return "icon scout.tga";
    if (deep)
        return timed ? "icon image.tga" : "icon volume.tga";
    if (timed)
        return "icon cine.tga";
    return frame.images_z == 1 && frame.images_t == 1 ? "icon image.tga" : "icon folder.tga";
}

struct Frame_Text {
    char text[80];

    Frame_Text(int index, const Frame_Record& frame)
    {
        const int first = index + 1;
        if (frame.images_z > 1)
            std::snprintf(
                text, sizeof text, "%d to %d (%dx%d)", first, index + frame.images_z, frame.width, frame.height);
        else if (frame.images_t < 2)
            std::snprintf(text, sizeof text, "%d (%dx%d)", first, frame.width, frame.height);
        else
            std::snprintf(text, sizeof text, "%d to %d", first, index + frame.images_t);
    }
};

// The parts of a path: its directory, and what comes behind it.
class Path_Parts {
public:
    explicit Path_Parts(const char* path)
        : room_((path ? std::strlen(path) : 0) + 1), parts_(new (std::nothrow) char[4 * room_])
    {
        if (!parts_)
            return;
        Get_Generic_Name(path, parts_.get(), parts_.get() + room_, parts_.get() + 3 * room_);
        char* const name = parts_.get() + room_;
        const char* const extension = parts_.get() + 3 * room_;
        std::memmove(name + std::strlen(name), extension, std::strlen(extension) + 1);
    }

    bool made() const { return parts_ != nullptr; }
    const char* directory() const { return parts_.get(); }
    const char* file_name() const { return parts_.get() + room_; }

private:
    std::size_t room_;
    std::unique_ptr<char[]> parts_;
};

// --------------------------------------------------------------------------------------------------------- building

// Appends rows in order. Each part is finished, or there is no more.
class Building {
public:
    Building(int& nb, DB_List*& list) : nb_(nb), list_(list) {}

    bool add_file(File_Record* file)
    {
        const Path_Parts path(file->path);
        if (!path.made()) {
            frame::report_new_failed(__LINE__, source);
            return false;
        }
        if (!is_in_directory(path.directory()) && !add_directory(path.directory()))
            return false;
        const Frame_Record* first = file->nb_frames > 0 ? db::record_of(*file, 0) : nullptr;
        file_ = nb_;
        if (!add_row(1, directory_, file))
            return false;
        row().state = DB_List::expanded;
        row().code = first ? first->modality : 0;
        row().icon = modality_icon(row().code);
        count_child(directory_);
        if (!take_texts("File", path.file_name()))
            return false;
        for (int i = 0; i < file->nb_frames; ++i) {
            if (!add_frame(file, i))
                return false;
        }
        return true;
    }

private:
    int& nb_;
    DB_List*& list_;
    int directory_ = -1;
    int file_ = 0;

    DB_List& row() { return list_[nb_ - 1]; }

    bool is_in_directory(const char* text) const
    {
        return directory_ >= 0 && std::strcmp(list_[directory_].title ? list_[directory_].title : "", text) == 0;
    }

    bool add_directory(const char* text)
    {
        directory_ = nb_;
        if (!add_row(0, 0, nullptr))
            return false;
        row().state = DB_List::expanded;
        row().color = white;
        row().icon = "icon folder.tga";
        return take_texts(text, nullptr);
    }

    bool add_frame(File_Record* file, int index)
    {
        constexpr unsigned char inaccessible = 64;
        const Frame_Record* record = db::record_of(*file, index);
        const Frame_Record described = record ? *record : Frame_Record{};
        if (!add_row(db::frame_level, file_, file))
            return false;
        row().state = DB_List::leaf;
        row().index = static_cast<unsigned short>(index);
        row().icon = frame_icon(described);
        if (file->frame_flags && (file->frame_flags[index] & inaccessible))
            row().select = DB_List::locked;
        count_child(file_);
        ++list_[directory_].nb_desc;
        return take_texts("Frame", Frame_Text(index, described).text);
    }

    bool add_row(unsigned short level, int parent, void* object)
    {
        if (nb_ >= db::most_rows)
            return false;
        if (!db::add_row(nb_, &list_)) {
            frame::report_realloc_failed(__LINE__, source, "(*list_pt)", nb_ + 1, static_cast<int>(sizeof(DB_List)));
            return false;
        }
        ++nb_;
        row().level = level;
        row().parent = static_cast<unsigned short>(level == 0 ? 0 : parent);
        row().object = object;
        return true;
    }

    void count_child(int parent)
    {
        ++list_[parent].nb_child;
        ++list_[parent].nb_desc;
    }

    bool take_texts(const char* title, const char* name)
    {
        if (!db::copy_text(title, &row().title)) {
            frame::report_strdup_failed(__LINE__, source, "(*list_pt)[nb].title");
            return false;
        }
        if (!db::copy_text(name, &row().name)) {
            frame::report_strdup_failed(__LINE__, source, "(*list_pt)[nb].name");
            return false;
        }
        return true;
    }
};

// -------------------------------------------------------------------------------------------------------- selecting

// Calls `visit` for each object and each row of the frame that it shows.
template <class Visit>
void for_shown_rows(const char* owner, int nb, const DB_List* list, const Visit& visit)
{
    const db::Frame_Rows rows(nb, list);
    if (!rows.made())
        return frame::report_new_failed(__LINE__, source);
    frame::Iterator_2D objects(owner, db::selection_word(), frame::Iterator_2D::Which::all);
    while (Strato_2D* object = objects.next()) {
        const Strato_2D* parent = object->Parent_Get_Pt();
        if (parent && db::is_left_out(parent->Title_Get()))
            continue;
        for (const auto& entry : rows.of(object->Frame_Record_Get()))
            visit(*object, entry);
    }
}

}

Tool_DB_File::Tool_DB_File(int given_mode)
{
    mode = given_mode;
}

unsigned short Tool_DB_File::List_Create_From_DB(int* count, DB_List** list, int, int, void*)
{
    const int files = frame::number("$DB_2D_FILE_NB");
    auto* const* const file_pt = frame::array<File_Record*>("$DB_2D_FILE_PT");
    Building building(*count, *list);
    for (int i = 0; file_pt && i < files; ++i) {
        if (file_pt[i] && !building.add_file(file_pt[i]))
            return 0;
    }
    return 1;
}

void Tool_DB_File::List_Select_From_DB(int count, DB_List* list)
{
    if (!frame::value_of("$WINDOW_CUR"))
        return;
    for_shown_rows("Tool_DB_File::List_Select_From_DB", count, list,
        [&](const Strato_2D& object, const db::Frame_Rows::Entry& entry) {
            db::take_selection(list[entry.row], db::is_selected(object));
        });
}

// The rows are not asked while changes are told: a host that answers at once reads them anew.
void Tool_DB_File::List_Select_To_DB(int count, DB_List* list)
{
    constexpr auto shown_in_window = 0x400ull, shown_of_selection = 0x0FFFFE80ull;
    void* const window = frame::value_of("$WINDOW_CUR");
    if (!window)
        return;
    for_shown_rows(
        "Tool_DB_File::List_Select_To_DB", count, list, [&](Strato_2D& object, const db::Frame_Rows::Entry& entry) {
            void* const word = db::selection_word();
            if (entry.selected == db::is_selected(object))
                return;
            if (entry.selected) {
                db::select(object, db::object_alone);
                Fct_Update(change::frame_selection, word, &object, nullptr);
                Fct_Redraw(shown_in_window, window, &object, nullptr);
            } else {
                db::deselect(object, db::object_alone);
                Fct_Update(change::frame_selection, word, nullptr, nullptr);
                Fct_Redraw(shown_of_selection, word, nullptr, nullptr);
            }
        });
}
