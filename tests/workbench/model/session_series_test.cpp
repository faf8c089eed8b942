#include "hostkit/structures/tree.h"
#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

namespace {

class SessionSeries : public test::SessionTest {
protected:
    static Strato_2D*& shown() { return hostkit::Array_Variable<Strato_2D*>("$FRAME_CUR")[0]; }
    static void* display_state() { return reinterpret_cast<void*>(4); }
    static int files() { return hostkit::Variable<unsigned short>("$DB_2D_FILE_NB"); }
    static const File_Record* file(int index) { return hostkit::Array_Variable<File_Record*>("$DB_2D_FILE_PT")[index]; }

    // As a list does it.
    static void select_only(Strato_2D* frame)
    {
        hostkit::Root_2D()->Flag_Set_Off(48, display_state(), 512);
        if (frame)
            frame->Flag_Set_On(80, display_state(), 512);
        Fct_Update(0x102, nullptr, nullptr, nullptr);
    }

    workbench::Session::Series series(std::size_t index) const { return session.series().at(index); }
};

document::Opened slice_of(const std::string& study, const std::string& series, int number)
{
    auto opened = test::made_image(4, 4, 2);
    auto& volume = opened.volume;
    volume.study_uid = study;
    volume.patient = "Doe Jane";
    volume.study = "Head";
    volume.study_date = "2024-05-31";
    volume.series = series;
    volume.series_number = number;
    volume.modality = "MR";
    volume.files = {"/images/" + series + "/a", "/images/" + series + "/b"};
    for (std::size_t z = 0; z < 2; ++z)
        volume.frames[z].file = volume.files[z];
    return opened;
}

TEST_F(SessionSeries, EachKeepsWhatIsItsOwn)
{
    open(40, 30, 5);
    paint({20, 20});
    session.setWindow({50, 10});
    session.markSaved("/tmp/first.nrrd", *session.snapshot());
    const auto first = tags();
    open(20, 10, 3);
    EXPECT_NE(session.window(), (document::Window{50, 10}));
    EXPECT_EQ(session.labelPath(), "");
    EXPECT_EQ(session.undoStack().count(), 0);
    paint({3, 3});
    EXPECT_TRUE(session.isImageWorkModified());

    session.showSeries(series(0));
    EXPECT_EQ(tags(), first);
    EXPECT_EQ(session.window(), (document::Window{50, 10}));
    EXPECT_EQ(session.labelPath(), "/tmp/first.nrrd");
    EXPECT_EQ(session.imageName(), "made.nii");
    EXPECT_FALSE(session.isImageWorkModified());
    EXPECT_TRUE(session.isModified()) << "of the other";
    EXPECT_EQ(session.undoStack().count(), 1);
    session.undoStack().undo();
    EXPECT_EQ(painted(0), first.size());
    EXPECT_EQ(series(1)->labels.at(3, 3, 1), 1) << "the step was of the first";
}

TEST_F(SessionSeries, OneThatIsOpenIsOnlyShown)
{
    open(8, 6, 5);
    paint({3, 3});
    open(8, 6, 3);
    QSignalSpy opened(&session, &workbench::Session::imageOpened);
    EXPECT_FALSE(session.adoptImage(test::made_image(8, 6, 5)));
    EXPECT_EQ(session.series().size(), 2u);
    EXPECT_EQ(session.currentSeries(), series(0));
    EXPECT_GT(painted(1), 0u);
    EXPECT_EQ(opened.size(), 0);
}

TEST_F(SessionSeries, OfSeveralTheLargestIsShown)
{
    std::vector<document::Opened> images;
    for (const int depth : {2, 6, 3}) {
        images.push_back(test::made_image(4, 4, depth));
        images.back().volume.files = {"/images/" + std::to_string(depth) + ".nii"};
    }
    document::Opened huge;
    huge.volume.geometry.size = {1 << 20, 1 << 20, 64};
    images.push_back(std::move(huge));
    const auto failures = session.adoptImages(std::move(images));
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(session.series().size(), 3u);
    EXPECT_EQ(session.frameCount(), 6);
    EXPECT_EQ(session.selection().count(), 6);
}

TEST_F(SessionSeries, AFrameThatIsSelectedInAnotherIsShownAndThatIsTheCurrentOne)
{
    open(8, 6, 5);
    open(8, 6, 3);
    QSignalSpy changed(&session, &workbench::Session::imageChanged);
    select_only(series_in_tree(0)->Child_Get_Pt(3));
    EXPECT_EQ(shown(), series_in_tree(0)->Child_Get_Pt(3));
    EXPECT_EQ(session.currentSeries(), series(0));
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(session.selection().count(), 1);
    paint({3, 3});
    EXPECT_EQ(session.labels().at(3, 3, 3), 1);
}

TEST_F(SessionSeries, AStrokeEndsInTheSeriesWhereItBegan)
{
    open(40, 30, 5);
    open(40, 30, 3);
    ASSERT_TRUE(session.beginStroke({20, 20}, false).isEmpty());
    select_only(series_in_tree(0)->Child_Get_Pt(1));
    EXPECT_FALSE(session.isPainting());
    EXPECT_EQ(session.undoStack().count(), 0);
    EXPECT_EQ(series(1)->undo.count(), 1);
    EXPECT_TRUE(series(1)->areLabelsModified());
}

TEST_F(SessionSeries, AWindowThatShowsNothingHarmsNothing)
{
    open(40, 30, 5);
    session.setFrame(3);
    QSignalSpy told(&session, &workbench::Session::frameChanged);
    {
        const hostkit::Panel_Call call; // as "Select None" does it
        select_only(nullptr);
        shown() = nullptr;
    }
    EXPECT_FALSE(session.showsFrame());
    EXPECT_TRUE(session.hasImage());
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(told.size(), 1);
    EXPECT_FALSE(session.beginStroke({20, 20}, false).isEmpty());
    EXPECT_FALSE(session.markers().beginSetting({2, 2}).isEmpty());
    EXPECT_FALSE(session.propagationOver(1, 1));
    session.setPointer(QPointF(1, 1));
    session.setFrame(3);
    EXPECT_TRUE(session.showsFrame());
    EXPECT_EQ(shown(), series_in_tree()->Child_Get_Pt(3));
    EXPECT_EQ(told.size(), 2);
    paint({20, 20});
    EXPECT_GT(painted(1), 0u);
}

TEST_F(SessionSeries, AnEmptiedWindowIsTakenInWhenAsked)
{
    open(40, 30, 5);
    QSignalSpy told(&session, &workbench::Session::frameChanged);
    shown() = nullptr;
    session.followWindow();
    EXPECT_EQ(told.size(), 1);
    session.followWindow();
    EXPECT_EQ(told.size(), 1);
}

TEST_F(SessionSeries, ClosingShowsTheNextAndTakesEverythingAway)
{
    open(8, 6, 5);
    open(8, 6, 3);
    open(8, 6, 2);
    session.showSeries(series(1));
    paint({3, 3});
    session.closeSeries();
    ASSERT_EQ(session.series().size(), 2u);
    EXPECT_EQ(session.frameCount(), 2);
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(session.undoStack().count(), 0);
    EXPECT_EQ(series_in_tree(2), nullptr);
    EXPECT_EQ(files(), 2);
    session.closeSeries();
    EXPECT_EQ(session.frameCount(), 5);
    EXPECT_EQ(session.selection().count(), 5);
    session.closeSeries();
    EXPECT_FALSE(session.hasImage());
    EXPECT_EQ(session.frameCount(), 0);
    EXPECT_EQ(shown(), nullptr);
    EXPECT_EQ(hostkit::Root_2D()->Child_Get_Nb(), 0);
    EXPECT_EQ(files(), 0);
    session.closeSeries();
    open(8, 6, 4);
    EXPECT_EQ(session.frame(), 2);
}

TEST_F(SessionSeries, StepsOfTagsLeaveWhatWasChangedElsewhere)
{
    open(8, 6, 5);
    session.setTagColour(3, Qt::red);
    const QColor before = session.tagColour(4);
    open(8, 6, 3);
    session.setTagColour(4, Qt::green);
    session.showSeries(series(0));
    session.undoStack().undo();
    EXPECT_NE(session.tagColour(3), QColor(Qt::red));
    EXPECT_EQ(session.tagColour(4), QColor(Qt::green));
    session.showSeries(series(1));
    session.undoStack().undo();
    EXPECT_EQ(session.tagColour(4), before);
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionSeries, LabelsOfAnotherOneAreLoadedButNotTakenOver)
{
    open(8, 6, 5);
    session.markSaved("/tmp/mine.nrrd", *session.snapshot());
    open(8, 6, 5);
    auto loaded = document::LabelMap::create(session.volume().geometry);
    loaded->set(1, 2, 0, 8);
    EXPECT_FALSE(session.adoptLabels(*loaded, "/tmp/mine.nrrd"));
    EXPECT_EQ(painted(8), 1u);
    EXPECT_EQ(session.labelPath(), "");
    EXPECT_EQ(session.otherWithLabels("/tmp/../tmp/mine.nrrd"), series(0).get());
}

TEST_F(SessionSeries, OfOneStudyAreTogetherAndNamedByTheirHeaders)
{
    std::vector<document::Opened> images;
    images.push_back(slice_of("1.2", "Axial", 3));
    images.push_back(slice_of("1.9", "Other", 0));
    images.push_back(slice_of("1.2", "Coronal", 4));
    EXPECT_TRUE(session.adoptImages(std::move(images)).empty());
    const Strato_2D* root = hostkit::Root_2D();
    ASSERT_EQ(root->Child_Get_Nb(), 2);
    ASSERT_EQ(root->Child_Get_Pt(0)->Child_Get_Nb(), 2);
    EXPECT_STREQ(root->Child_Get_Pt(0)->Name_Get(), "Doe Jane, Head, 2024-05-31");
    EXPECT_STREQ(root->Child_Get_Pt(0)->Icon_Get(), "icon study.tga");
    EXPECT_STREQ(series_in_tree(0)->Name_Get(), "3: Axial");
    EXPECT_STREQ(series_in_tree(1)->Name_Get(), "4: Coronal");
    EXPECT_STREQ(series_in_tree(2)->Name_Get(), "Other");
    EXPECT_STREQ(series_in_tree(1)->Child_Get_Pt(1)->Name_Get(), "2, 1 mm");
}

TEST_F(SessionSeries, FilesHaveARecordForEachFrame)
{
    auto axial = slice_of("1.2", "Axial", 3);
    axial.volume.frames[1].is_scout = true;
    EXPECT_FALSE(session.adoptImage(std::move(axial)));
    open(8, 6, 5);
    ASSERT_EQ(files(), 3);
    EXPECT_STREQ(file(1)->path, "/images/Axial/b");
    ASSERT_EQ(file(1)->nb_frames, 1);
    const Frame_Record& record = *file(1)->frames[0];
    EXPECT_EQ(record.modality, 0x4D52);
    EXPECT_EQ(record.flags & 16, 16);
    EXPECT_EQ(record.width, 4);
    EXPECT_EQ(record.images_z, 1);
    EXPECT_EQ(record.images_t, 1);
    EXPECT_EQ(file(1)->frame_flags[0], 0);
    EXPECT_EQ(series_in_tree(0)->Child_Get_Pt(1)->Frame_Record_Get(), &record);
    ASSERT_EQ(file(2)->nb_frames, 5);
    EXPECT_EQ(file(2)->frames[0]->modality, 0);
    EXPECT_EQ(series_in_tree(1)->Child_Get_Pt(4)->Frame_Record_Get(), file(2)->frames[4]);
}

TEST_F(SessionSeries, FramesThatWereLeftOutAreNotAccessibleInTheirFiles)
{
    auto axial = slice_of("1.2", "Axial", 3);
    axial.volume.left_out = {{0, 3, "/images/Axial/later"}, {1, 4, "/images/Axial/b"}};
    EXPECT_FALSE(session.adoptImage(std::move(axial)));
    ASSERT_EQ(files(), 3);
    EXPECT_STREQ(file(2)->path, "/images/Axial/later");
    EXPECT_EQ(file(2)->frame_flags[0], 64);
    EXPECT_EQ(file(2)->frames[0]->modality, 0x4D52);
    ASSERT_EQ(file(1)->nb_frames, 2);
    EXPECT_EQ(file(1)->frame_flags[0], 0);
    EXPECT_EQ(file(1)->frame_flags[1], 64);
    EXPECT_EQ(series_in_tree(0)->Child_Get_Nb(), 2) << "they are no images of the series";
    EXPECT_EQ(series_in_tree(0)->Child_Get_Pt(1)->Frame_Record_Get(), file(1)->frames[0]);
}

}
