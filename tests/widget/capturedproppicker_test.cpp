// SPDX-License-Identifier: BSD-3-Clause
#include <support/hostfixture.h>
#include <support/messagewatch.h>
#include <support/rendercount.h>
#include <visualization/capturedproppicker.h>

#include <vtkActor.h>
#include <vtkAssemblyNode.h>
#include <vtkAssemblyPath.h>
#include <vtkCallbackCommand.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkCommand.h>
#include <vtkCubeAxesActor.h>
#include <vtkPlane.h>
#include <vtkPlaneSource.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>
#include <vtkTransform.h>

#include <gtest/gtest.h>
#include <limits>

using ovl::CapturedPropPicker;
using ovl::test::HostFixture;
using ovl::test::MessageWatch;
using ovl::test::RenderCount;

namespace {

template <class Type> vtkSmartPointer<Type> make() { return vtkSmartPointer<Type>::New(); }

/** Points and a patch of surface with axes around them, and both pickers on the same actor. */
class PickerFixture : public HostFixture, public testing::Test {
public:
    PickerFixture()
        : HostFixture({160, 120})
    {
        fill(0.0);
        mapper->SetInputData(data);
        actor->SetMapper(mapper);
        actor->GetProperty()->SetPointSize(3.0);
        axes->SetBounds(actor->GetBounds());
        axes->SetCamera(renderer->GetActiveCamera());
        renderer->AddActor(axes);
        renderer->AddActor(actor);
        window()->AddRenderer(renderer);
        for (vtkPropPicker* picker : {captured.Get(), stock.Get()}) {
            picker->PickFromListOn();
            picker->AddPickList(actor);
        }
        renderer->ResetCamera();
        camera()->Elevation(30.0);
        camera()->Azimuth(20.0);
        renderer->ResetCameraClippingRange();
        render();
    }

    ~PickerFixture() override { window()->RemoveRenderer(renderer); }

    void fill(double lift)
    {
        points->SetNumberOfPoints(104);
        for (int index = 0; index < 100; ++index)
            points->SetPoint(index, index % 10, index / 10, lift + index * 7 % 5);
        const double corners[4][2] = {{2.0, 2.0}, {7.0, 2.0}, {7.0, 7.0}, {2.0, 7.0}};
        for (int corner = 0; corner < 4; ++corner)
            points->SetPoint(100 + corner, corners[corner][0], corners[corner][1], 2.0 + corner);
        const auto dots = make<vtkCellArray>();
        dots->InsertNextCell(100);
        for (int index = 0; index < 100; ++index)
            dots->InsertCellPoint(index);
        const auto patch = make<vtkCellArray>();
        patch->InsertNextCell({100, 101, 102, 103});
        points->Modified();
        data->SetPoints(points);
        data->SetVerts(dots);
        data->SetPolys(patch);
    }

    vtkCamera* camera() { return renderer->GetActiveCamera(); }

    /** Compares everything that both answer at one position. */
    void compareAt(double x, double y)
    {
        const int hit = stock->Pick(x, y, 0.0, renderer);
        const int answer = captured->Pick(x, y, 0.0, renderer);
        ASSERT_EQ(answer, hit) << x << ' ' << y;
        ASSERT_EQ(captured->GetViewProp(), stock->GetViewProp());
        ASSERT_EQ(captured->GetActor(), stock->GetActor());
        ASSERT_EQ(captured->GetRenderer(), stock->GetRenderer());
        for (int axis = 0; axis < 3; ++axis) {
            ASSERT_EQ(captured->GetPickPosition()[axis], stock->GetPickPosition()[axis]);
            ASSERT_EQ(captured->GetSelectionPoint()[axis], stock->GetSelectionPoint()[axis]);
        }
        hits += hit;
    }

    /** Compares over the whole window and beyond its edges; every step-th pixel. */
    void compareEverywhere(int step)
    {
        hits = 0;
        for (int y = -step; y < 120 + step; y += step)
            for (int x = -step; x < 160 + step; x += step)
                compareAt(x, y);
    }

    /** After a change: the very next answer must be right already. */
    void compareAfterChange()
    {
        for (int y = 20; y < 100; y += 8)
            for (int x = 24; x < 136; x += 8)
                compareAt(x, y);
    }

    /** Picks once, so that the picture is fresh, and counts the renders of a second pick. */
    int rendersOfAPickAtRest()
    {
        captured->Pick(80.0, 60.0, 0.0, renderer);
        renders.reset();
        captured->Pick(81.0, 60.0, 0.0, renderer);
        return renders.count();
    }

    vtkSmartPointer<vtkRenderer> renderer = make<vtkRenderer>();
    vtkSmartPointer<vtkActor> actor = make<vtkActor>();
    vtkSmartPointer<vtkCubeAxesActor> axes = make<vtkCubeAxesActor>();
    vtkSmartPointer<vtkPolyDataMapper> mapper = make<vtkPolyDataMapper>();
    vtkSmartPointer<vtkPolyData> data = make<vtkPolyData>();
    vtkSmartPointer<vtkPoints> points = make<vtkPoints>();
    vtkSmartPointer<vtkPropPicker> captured = make<CapturedPropPicker>();
    vtkSmartPointer<vtkPropPicker> stock = make<vtkPropPicker>();
    RenderCount renders {window()};
    int hits = 0;
};

using CapturedPropPickerTest = PickerFixture;

TEST_F(CapturedPropPickerTest, AnswersAsTheStockPickerDoesEverywhere)
{
    compareEverywhere(2);
    EXPECT_GT(hits, 400);
    EXPECT_LT(hits, 4000); // there was background, too
}

TEST_F(CapturedPropPickerTest, AnswersAsTheStockPickerDoesUnderParallelProjection)
{
    camera()->ParallelProjectionOn();
    renderer->ResetCamera();
    compareEverywhere(4);
    EXPECT_GT(hits, 100);
}

TEST_F(CapturedPropPickerTest, AnswersAsTheStockPickerDoesWithTheCameraWithinTheData)
{
    camera()->SetPosition(5.0, 5.0, 2.2);
    camera()->SetFocalPoint(0.0, 0.0, 2.0);
    camera()->SetViewUp(0.0, 0.0, 1.0);
    renderer->ResetCameraClippingRange();
    compareEverywhere(4);
    EXPECT_GT(hits, 10);
}

TEST_F(CapturedPropPickerTest, AnswersAsTheStockPickerDoesWithDataAcrossTheFarPlane)
{
    const double distance = camera()->GetDistance();
    camera()->SetClippingRange(0.01, distance);
    compareEverywhere(4);
    camera()->SetClippingRange(1e-6, distance * 1.5);
    compareEverywhere(4);
}

TEST_F(CapturedPropPickerTest, AnswersAsTheStockPickerDoesBetweenThePixels)
{
    for (const double x : {80.25, 80.5, 80.75})
        compareAt(x, 60.5);
    compareAt(-0.5, 60.0);
}

TEST_F(CapturedPropPickerTest, APickAtRestRendersNothing)
{
    EXPECT_EQ(rendersOfAPickAtRest(), 0);
    renders.reset();
    stock->Pick(80.0, 60.0, 0.0, renderer);
    EXPECT_GT(renders.count(), 0); // which is why
}

TEST_F(CapturedPropPickerTest, AHostsRepaintKeepsThePicture)
{
    captured->Pick(80.0, 60.0, 0.0, renderer);
    render();
    renders.reset();
    captured->Pick(81.0, 60.0, 0.0, renderer);
    EXPECT_EQ(renders.count(), 0);
}

TEST_F(CapturedPropPickerTest, EveryChangeIsSeenByTheNextPick)
{
    const auto otherCamera = make<vtkCamera>();
    otherCamera->DeepCopy(camera());
    otherCamera->Azimuth(10.0);
    const auto plane = make<vtkPlaneSource>();
    plane->SetPoint1(9.0, 0.0, 0.0);
    plane->SetPoint2(0.0, 9.0, 0.0);
    const auto otherMapper = make<vtkPolyDataMapper>();
    otherMapper->SetInputConnection(plane->GetOutputPort());
    const auto otherData = make<vtkPolyData>();
    otherData->DeepCopy(data);
    const auto transform = make<vtkTransform>();
    const auto projection = make<vtkTransform>();
    const auto clip = make<vtkPlane>();
    clip->SetOrigin(4.0, 0.0, 0.0);
    clip->SetNormal(1.0, 0.0, 0.0);
    const auto other = make<vtkActor>();
    other->SetMapper(otherMapper);

    struct Change {
        const char* name;
        std::function<void()> make;
    };
    const Change changes[] = {
        {"camera turned", [&] { camera()->Azimuth(15.0); }},
        {"camera dollied", [&] { camera()->Dolly(1.3); }},
        {"clipping range", [&] { renderer->ResetCameraClippingRange(); }},
        {"another camera", [&] { renderer->SetActiveCamera(otherCamera); }},
        {"actor scaled", [&] { actor->SetScale(1.2, 0.8, 1.0); }},
        {"actor's matrix", [&] { actor->SetUserTransform(transform); }},
        {"actor's matrix changed", [&] { transform->Translate(1.0, 1.0, 0.0); }},
        {"points moved", [&] { fill(1.0); }},
        {"points written",
            [&] {
                points->SetPoint(100, -3.0, 2.0, 2.0);
                points->Modified();
            }},
        {"points' memory written",
            [&] {
                static_cast<float*>(points->GetVoidPointer(100))[0] = 1.0F;
                points->GetData()->Modified();
            }},
        {"another data set", [&] { mapper->SetInputData(otherData); }},
        {"representation", [&] { actor->GetProperty()->SetRepresentationToWireframe(); }},
        {"point size", [&] { actor->GetProperty()->SetPointSize(9.0); }},
        {"translucent", [&] { actor->GetProperty()->SetOpacity(0.5); }},
        {"camera turned before what is translucent", [&] { camera()->Azimuth(-5.0); }},
        {"opaque", [&] { actor->GetProperty()->SetOpacity(1.0); }},
        {"faces culled", [&] { actor->GetProperty()->FrontfaceCullingOn(); }},
        {"faces no longer culled", [&] { actor->GetProperty()->FrontfaceCullingOff(); }},
        {"camera's own projection", [&] { camera()->SetUserTransform(projection); }},
        {"that projection changed", [&] { projection->Scale(0.7, 0.9, 1.0); }},
        {"camera's own projection gone", [&] { camera()->SetUserTransform(nullptr); }},
        {"clipped", [&] { mapper->AddClippingPlane(clip); }},
        {"clipped elsewhere", [&] { clip->SetOrigin(6.0, 0.0, 0.0); }},
        {"clipped no more", [&] { mapper->RemoveAllClippingPlanes(); }},
        {"another mapper", [&] { actor->SetMapper(otherMapper); }},
        {"its source", [&] { plane->SetPoint1(4.0, 0.0, 3.0); }},
        {"invisible", [&] { actor->VisibilityOff(); }},
        {"visible", [&] { actor->VisibilityOn(); }},
        {"not pickable", [&] { actor->PickableOff(); }},
        {"pickable", [&] { actor->PickableOn(); }},
        {"another prop", [&] { renderer->AddActor(other); }},
        {"axes hidden", [&] { axes->VisibilityOff(); }},
        {"viewport", [&] { renderer->SetViewport(0.0, 0.0, 0.5, 1.0); }},
        {"viewport back", [&] { renderer->SetViewport(0.0, 0.0, 1.0, 1.0); }},
        {"window's size",
            [&] {
                resize({140, 130});
            }},
        {"window's size back",
            [&] {
                resize({160, 120});
            }},
        {"renderer draws no more", [&] { renderer->DrawOff(); }},
        {"renderer draws again", [&] { renderer->DrawOn(); }},
        {"two actors",
            [&] {
                captured->AddPickList(other);
                stock->AddPickList(other);
            }},
        {"another single actor",
            [&] {
                captured->DeletePickList(actor);
                stock->DeletePickList(actor);
            }},
        {"from all props",
            [&] {
                captured->PickFromListOff();
                stock->PickFromListOff();
            }},
    };
    for (const Change& change : changes) {
        SCOPED_TRACE(change.name);
        captured->Pick(80.0, 60.0, 0.0, renderer);
        change.make();
        // Ours goes first: it must not live on what the stock picker has just updated.
        const int answer = captured->Pick(80.0, 60.0, 0.0, renderer);
        EXPECT_EQ(answer, stock->Pick(80.0, 60.0, 0.0, renderer));
        compareAfterChange();
        if (HasFatalFailure())
            return;
    }
    EXPECT_GT(hits, 200);
}

TEST_F(CapturedPropPickerTest, NoChangeStaysUnseenInTheWholePicture)
{
    compareEverywhere(8);
    camera()->Azimuth(35.0);
    renderer->ResetCameraClippingRange();
    compareEverywhere(4);
    fill(2.0);
    compareEverywhere(4);
}

TEST_F(CapturedPropPickerTest, ASecondRendererLeavesThePickToTheStockPicker)
{
    const auto second = make<vtkRenderer>();
    window()->AddRenderer(second);
    compareAfterChange();
    EXPECT_GT(rendersOfAPickAtRest(), 0);
    window()->RemoveRenderer(second);
    compareAfterChange();
    EXPECT_EQ(rendersOfAPickAtRest(), 0);
}

TEST_F(CapturedPropPickerTest, ReportsThePickAsTheStockPickerDoes)
{
    struct Log {
        std::vector<unsigned long> events;
        static void add(vtkObject*, unsigned long event, void* log, void*)
        {
            static_cast<Log*>(log)->events.push_back(event);
        }
    } log;
    const auto observer = make<vtkCallbackCommand>();
    observer->SetClientData(&log);
    observer->SetCallback(&Log::add);
    for (const unsigned long event :
        {vtkCommand::StartPickEvent, vtkCommand::PickEvent, vtkCommand::EndPickEvent})
        for (vtkObject* subject : {static_cast<vtkObject*>(captured.Get()),
                 static_cast<vtkObject*>(stock.Get()), static_cast<vtkObject*>(actor.Get())})
            subject->AddObserver(event, observer);
    captured->Pick(80.0, 60.0, 0.0, renderer);
    for (const double x : {80.0, 1.0}) {
        log.events.clear();
        captured->Pick(x, 60.0, 0.0, renderer);
        const std::vector<unsigned long> ours = log.events;
        log.events.clear();
        stock->Pick(x, 60.0, 0.0, renderer);
        EXPECT_EQ(ours, log.events);
    }
}

TEST_F(CapturedPropPickerTest, WithoutARendererNothingIsPicked)
{
    captured->Pick(80.0, 60.0, 0.0, renderer);
    EXPECT_EQ(captured->Pick(80.0, 60.0, 0.0, nullptr), 0);
    EXPECT_EQ(captured->GetPath(), nullptr);
}

TEST_F(CapturedPropPickerTest, AnActorWithoutDataIsNotPicked)
{
    MessageWatch::expect("Mapper has no input"); // the stock picker's rendering says so
    MessageWatch::allow("connection index 0");
    mapper->RemoveAllInputs();
    EXPECT_EQ(captured->Pick(80.0, 60.0, 0.0, renderer), 0);
    mapper->SetInputData(make<vtkPolyData>());
    EXPECT_EQ(captured->Pick(80.0, 60.0, 0.0, renderer), 0);
    EXPECT_EQ(captured->Pick(81.0, 60.0, 0.0, renderer), 0);
}

} // namespace
