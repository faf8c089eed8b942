#include "hostkit/structures/open_file.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/tree.h"
#include "hostkit/structures/windows.h"

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

const Frame_Record* Strato_2D::Frame_Record_Get() const
{
    const auto& file = record()->file;
    return file && file->open && file->frames ? file->frames[record()->frame] : nullptr;
}

int Strato_2D::Child_Get_Cur(Strato_Window* window) const
{
    return Child_Get_Id(hostkit::Window_Frame(window));
}
