// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <support/hostfixture.h>
#include <visualization/volumeinteractorstyle.h>

#include <QVTKInteractor.h>
#include <vtkActor.h>
#include <vtkAssemblyPath.h>
#include <vtkCamera.h>
#include <vtkCommand.h>
#include <vtkObjectFactory.h>
#include <vtkPlaneSource.h>
#include <vtkPolyDataMapper.h>
#include <vtkPropPicker.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <gtest/gtest.h>
#include <limits>
#include <vector>

using ovl::VolumeInteractorStyle;
using ovl::test::CoordinatesRecorder;
using ovl::test::HostFixture;

namespace {

using Position = std::array<double, 3>;

/** Answers what the test has laid down, and keeps what it was asked. */
class PreparedPicker : public vtkPropPicker {
public:
    static PreparedPicker* New();
    vtkTypeMacro(PreparedPicker, vtkPropPicker)

    using vtkPropPicker::Pick;
    int Pick(double x, double y, double z, vtkRenderer* renderer) override
    {
        asked.push_back({x, y, z});
        askedRenderer = renderer;
        if (onPick)
            onPick();
        return Path ? 1 : 0;
    }

    void answer(std::vector<vtkProp*> props, Position position)
    {
        const auto path = vtkSmartPointer<vtkAssemblyPath>::New();
        for (vtkProp* prop : props)
            path->AddNode(prop, nullptr);
        SetPath(props.empty() ? nullptr : path.Get());
        std::copy(position.begin(), position.end(), PickPosition);
    }

    std::vector<Position> asked;
    vtkRenderer* askedRenderer = nullptr;
    std::function<void()> onPick;
};
vtkStandardNewMacro(PreparedPicker);

/** The style alone on a host's widget, with an actor that fills the view and a prepared picker. */
class StyleFixture : public HostFixture, public testing::Test {
public:
    StyleFixture()
    {
        const auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
        mapper->SetInputConnection(vtkSmartPointer<vtkPlaneSource>::New()->GetOutputPort());
        actor->SetMapper(mapper);
        scene->AddActor(actor);
        window()->AddRenderer(scene);
        window()->SetInteractor(interactor);
        interactor->SetInteractorStyle(style);
        style->setPickedActor(actor);
        style->setPicker(picker);
        style->setDirtyNotifier([this](bool dirty) { notified.push_back(dirty); });
        picker->answer({actor}, {0.0, 0.0, 0.0});
        scene->ResetCamera();
        render();
    }

    ~StyleFixture() override
    {
        style->SetInteractor(nullptr);
        window()->RemoveRenderer(scene);
    }

    vtkCamera* camera() { return scene->GetActiveCamera(); }
    Position cameraPosition()
    {
        Position position;
        camera()->GetPosition(position.data());
        return position;
    }

    vtkSmartPointer<vtkActor> actor = vtkSmartPointer<vtkActor>::New();
    vtkSmartPointer<vtkRenderer> scene = vtkSmartPointer<vtkRenderer>::New();
    vtkSmartPointer<QVTKInteractor> interactor = vtkSmartPointer<QVTKInteractor>::New();
    vtkSmartPointer<VolumeInteractorStyle> style = vtkSmartPointer<VolumeInteractorStyle>::New();
    vtkSmartPointer<PreparedPicker> picker = vtkSmartPointer<PreparedPicker>::New();
    std::vector<bool> notified;
    CoordinatesRecorder recorder;
};

using VolumeInteractorStyleTest = StyleFixture;

const std::vector<Qt::MouseButton> allButtons {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};

TEST_F(VolumeInteractorStyleTest, CarriesItsNameAndItsBase)
{
    EXPECT_STREQ(style->GetClassName(), "VolumeInteractorStyle");
    EXPECT_TRUE(style->IsA("VolumeInteractorStyle"));
    EXPECT_TRUE(style->IsA("vtkInteractorStyleTrackballCamera"));
    vtkSmartPointer<vtkObjectBase> another;
    another.TakeReference(style->NewInstance());
    EXPECT_TRUE(another->IsA("VolumeInteractorStyle"));
}

TEST_F(VolumeInteractorStyleTest, MovePicksAtTheEventsPositionInTheWindowsFirstRenderer)
{
    move({40, 30});
    ASSERT_EQ(picker->asked.size(), 1u);
    EXPECT_EQ(picker->asked[0], (Position {40.0, 169.0, 0.0})); // counted from the lower edge
    EXPECT_EQ(picker->askedRenderer, scene.Get());
}

TEST_F(VolumeInteractorStyleTest, WorldYIsPublishedFirstAndWorldXSecond)
{
    picker->answer({actor}, {10.0, 20.0, 30.0});
    move({40, 30});
    EXPECT_EQ(recorder.positions, (std::vector<Position> {{20.0, 10.0, 30.0}}));
    EXPECT_EQ(recorder.cleared, 0);
}

TEST_F(VolumeInteractorStyleTest, TheActorsScaleIsTakenOut)
{
    actor->SetScale(2.0, 4.0, 0.5);
    picker->answer({actor}, {10.0, 20.0, 30.0});
    move({40, 30});
    EXPECT_EQ(recorder.positions, (std::vector<Position> {{5.0, 5.0, 60.0}}));
}

TEST_F(VolumeInteractorStyleTest, TiesAreRoundedAwayFromZeroAfterTheDivision)
{
    actor->SetScale(2.0, 1.0, 1.0);
    picker->answer({actor}, {5.0, -2.5, -0.4});
    move({40, 30});
    EXPECT_EQ(recorder.positions, (std::vector<Position> {{-3.0, 3.0, 0.0}}));
}

TEST_F(VolumeInteractorStyleTest, AScaleOfZeroYieldsTheLowestInteger)
{
    actor->SetScale(0.0, 1.0, 1.0);
    picker->answer({actor}, {5.0, 1.0, 2.0});
    move({40, 30});
    picker->answer({actor}, {0.0, 1.0, 2.0});
    move({41, 30});
    EXPECT_EQ(recorder.positions,
        (std::vector<Position> {{1.0, -2147483648.0, 2.0}, {1.0, -2147483648.0, 2.0}}));
}

TEST_F(VolumeInteractorStyleTest, TheActorMayStandAnywhereInThePickedPath)
{
    const auto other = vtkSmartPointer<vtkActor>::New();
    picker->answer({other, actor}, {1.0, 2.0, 3.0});
    move({40, 30});
    EXPECT_EQ(recorder.positions, (std::vector<Position> {{2.0, 1.0, 3.0}}));
}

TEST_F(VolumeInteractorStyleTest, AnythingButTheActorClearsAtEveryMove)
{
    const auto other = vtkSmartPointer<vtkActor>::New();
    picker->answer({other}, {1.0, 2.0, 3.0});
    move({40, 30});
    move({41, 30});
    picker->answer({}, {1.0, 2.0, 3.0});
    move({42, 30});
    EXPECT_EQ(recorder.cleared, 3);
    EXPECT_TRUE(recorder.positions.empty());
}

TEST_F(VolumeInteractorStyleTest, WithoutActorOrPickerAMoveClearsAndDoesNotNotify)
{
    press({40, 30});
    style->setPicker(nullptr);
    move({41, 30});
    style->setPicker(picker);
    style->setPickedActor(nullptr);
    move({42, 30});
    EXPECT_EQ(recorder.cleared, 2);
    EXPECT_TRUE(picker->asked.empty());
    EXPECT_TRUE(notified.empty());
}

TEST_F(VolumeInteractorStyleTest, AMoveWithoutButtonPublishesAndDoesNotNotify)
{
    move({40, 30});
    EXPECT_EQ(recorder.positions.size(), 1u);
    EXPECT_TRUE(notified.empty());
}

TEST_F(VolumeInteractorStyleTest, EveryButtonsDragNotifiesAtEachMoveUntilItsRelease)
{
    for (const Qt::MouseButton button : allButtons) {
        SCOPED_TRACE(button);
        notified.clear();
        press({40, 30}, button);
        EXPECT_TRUE(notified.empty());
        move({41, 31}, Qt::NoModifier);
        move({42, 32}, Qt::NoModifier);
        EXPECT_EQ(notified, (std::vector<bool> {true, true}));
        release({42, 32}, button);
        move({43, 33});
        EXPECT_EQ(notified.size(), 2u);
    }
}

TEST_F(VolumeInteractorStyleTest, ADragThatHasLeftTheDataStillNotifiesAndClears)
{
    press({40, 30});
    picker->answer({}, {0.0, 0.0, 0.0});
    move({41, 31});
    move({42, 32});
    EXPECT_EQ(notified.size(), 2u);
    EXPECT_EQ(recorder.cleared, 2);
}

TEST_F(VolumeInteractorStyleTest, NotifiesAfterThePickAndBeforeItPublishes)
{
    std::vector<std::string> order;
    picker->onPick = [&] { order.push_back("pick"); };
    style->setDirtyNotifier(
        [&](bool) { order.push_back(recorder.positions.empty() ? "notify" : "notify too late"); });
    press({40, 30});
    move({41, 31});
    EXPECT_EQ(order, (std::vector<std::string> {"pick", "notify"}));
    EXPECT_EQ(recorder.positions.size(), 1u);
}

TEST_F(VolumeInteractorStyleTest, PicksBeforeTheCameraMoves)
{
    Position atPick;
    picker->onPick = [&] { atPick = cameraPosition(); };
    const Position before = cameraPosition();
    press({40, 30});
    move({60, 50});
    EXPECT_EQ(atPick, before);
    EXPECT_NE(cameraPosition(), before);
}

TEST_F(VolumeInteractorStyleTest, TheReleaseOfEitherOfTwoButtonsClearsTheFlag)
{
    press({40, 30}, Qt::LeftButton);
    press({40, 30}, Qt::RightButton);
    release({40, 30}, Qt::RightButton);
    move({41, 31});
    EXPECT_TRUE(notified.empty());
}

TEST_F(VolumeInteractorStyleTest, TheWheelNotifiesWithoutAPick)
{
    wheel({40, 30}, 1);
    wheel({40, 30}, -2);
    EXPECT_EQ(notified, (std::vector<bool> {true, true, true}));
    EXPECT_TRUE(picker->asked.empty());
    EXPECT_TRUE(recorder.positions.empty());
    EXPECT_EQ(recorder.cleared, 0);
}

TEST_F(VolumeInteractorStyleTest, TheWheelNotifiesWithAButtonDownToo)
{
    press({40, 30});
    wheel({40, 30}, 1);
    EXPECT_EQ(notified.size(), 1u);
}

TEST_F(VolumeInteractorStyleTest, WithoutNotifierTheCameraMovesAllTheSame)
{
    style->setDirtyNotifier(nullptr);
    const Position start = cameraPosition();
    drag({40, 30}, {60, 50});
    const Position dragged = cameraPosition();
    EXPECT_NE(dragged, start);
    wheel({40, 30}, 1);
    EXPECT_NE(cameraPosition(), dragged);
    EXPECT_EQ(recorder.positions.size(), 1u);
}

TEST_F(VolumeInteractorStyleTest, LeftTurnsMiddlePansRightDollies)
{
    const double distance = camera()->GetDistance();
    Position focus;
    drag({40, 30}, {60, 50}, Qt::LeftButton);
    EXPECT_NEAR(camera()->GetDistance(), distance, 1e-9);
    camera()->GetFocalPoint(focus.data());
    EXPECT_EQ(focus, (Position {0.0, 0.0, 0.0}));

    drag({40, 30}, {60, 50}, Qt::MiddleButton);
    EXPECT_NEAR(camera()->GetDistance(), distance, 1e-9);
    camera()->GetFocalPoint(focus.data());
    EXPECT_NE(focus, (Position {0.0, 0.0, 0.0}));

    drag({40, 30}, {40, 60}, Qt::RightButton);
    EXPECT_GT(camera()->GetDistance(), distance * 1.01);
}

TEST_F(VolumeInteractorStyleTest, ShiftLeavesTheRightButtonsDollyAlone)
{
    const double distance = camera()->GetDistance();
    drag({40, 30}, {40, 60}, Qt::RightButton, 1, Qt::ShiftModifier);
    EXPECT_GT(camera()->GetDistance(), distance * 1.01);
}

TEST_F(VolumeInteractorStyleTest, TheShiftKeyIsStillSeenDownAfterTheRightPress)
{
    press({40, 30}, Qt::RightButton, Qt::ShiftModifier);
    EXPECT_EQ(interactor->GetShiftKey(), 1);
}

TEST_F(VolumeInteractorStyleTest, TheSecondPressOfADoubleClickStartsADragToo)
{
    for (const Qt::MouseButton button : allButtons) {
        SCOPED_TRACE(button);
        notified.clear();
        const Position before = cameraPosition();
        doubleClick({40, 30}, button);
        move({60, 60});
        EXPECT_EQ(notified.size(), 1u);
        EXPECT_NE(cameraPosition(), before);
        release({60, 60}, button);
    }
}

TEST_F(VolumeInteractorStyleTest, ANewNotifierReplacesTheOldOne)
{
    int second = 0;
    style->setDirtyNotifier([&](bool) { ++second; });
    wheel({40, 30}, 1);
    EXPECT_TRUE(notified.empty());
    EXPECT_EQ(second, 1);
}

} // namespace
