#include "hostkit/structures/open_file.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/tree.h"
#include "hostkit/structures/windows.h"

namespace {

Strato* child_at(const Strato* object, int index)
{
    const auto& children = object->record()->children;
    return index >= 0 && index < static_cast<int>(children.size()) ? children[static_cast<size_t>(index)] : nullptr;
}

int child_count(const Strato* object)
{
    return static_cast<int>(object->record()->children.size());
}

}

Strato::Strato(Record* record) : record_(record) {}

Strato::~Strato()
{
    delete record_;
}

unsigned Strato::Class_Magic_Get() const
{
    return record_->magic;
}

unsigned Strato::Class_A_Get() const
{
    return record_->class_a;
}

unsigned Strato::Class_B_Get() const
{
    return record_->class_b;
}

const char* Strato::Icon_Get() const
{
    return record_->icon;
}

const char* Strato::Name_Get() const
{
    return record_->name.c_str();
}

void Strato::Name_Set(const char* name)
{
    record_->name = name ? name : "";
}

const char* Strato::Title_Get() const
{
    return record_->title.c_str();
}

int Strato_1D::Child_Get_Nb() const
{
    return child_count(this);
}

Strato_1D* Strato_1D::Child_Get_Pt(int index) const
{
    return static_cast<Strato_1D*>(child_at(this, index));
}

Strato_1D* Strato_1D::Parent_Get_Pt() const
{
    return static_cast<Strato_1D*>(record()->parent);
}

int Strato_2D::Child_Get_Nb() const
{
    return child_count(this);
}

Strato_2D* Strato_2D::Child_Get_Pt(int index) const
{
    return static_cast<Strato_2D*>(child_at(this, index));
}

Strato_2D* Strato_2D::Parent_Get_Pt() const
{
    return static_cast<Strato_2D*>(record()->parent);
}

const Frame_Record* Strato_2D::Frame_Record_Get() const
{
    const auto& file = record()->file;
    return file && file->open && file->frames ? file->frames[record()->frame] : nullptr;
}

int Strato_2D::Child_Get_Cur(Strato_Window* window) const
{
    const Strato_2D* shown = hostkit::Window_Frame(window);
    return shown && shown->Parent_Get_Pt() == this ? hostkit::Child_Index(shown) : -1;
}

int Strato_3D::Child_Get_Nb() const
{
    return child_count(this);
}

Strato_3D* Strato_3D::Child_Get_Pt(int index) const
{
    return static_cast<Strato_3D*>(child_at(this, index));
}

Strato_3D* Strato_3D::Parent_Get_Pt() const
{
    return static_cast<Strato_3D*>(record()->parent);
}
