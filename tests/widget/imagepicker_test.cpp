// SPDX-License-Identifier: BSD-3-Clause
#include <support/imagefixture.h>
#include <visualization/imagepicker.h>

#include <vtkAssemblyNode.h>
#include <vtkAssemblyPath.h>
#include <vtkCallbackCommand.h>
#include <vtkImageSliceMapper.h>
#include <vtkMatrix4x4.h>
#include <vtkPlane.h>
#include <vtkRenderWindow.h>
#include <vtkSmartPointer.h>
#include <vtkTransform.h>

#include <functional>
#include <gtest/gtest.h>
#include <limits>

using ovl::ImagePicker;
using ovl::test::ImageFixture;

namespace {

template <class Type> vtkSmartPointer<Type> make() { return vtkSmartPointer<Type>::New(); }

constexpr int kWidth = 160; // of the window, pixels
constexpr int kHeight = 120;

/** An image of 23 x 17 pixels in a view, and both pickers on it. */
class ImagePicking : public ImageFixture, public testing::Test {
protected:
    ImagePicking()
        : ImageFixture({kWidth, kHeight})
    {
        draw(pixels, 23, 1, 0);
        render();
        for (vtkCellPicker* picker : pickers()) {
            picker->PickFromListOn();
            picker->AddPickList(image());
            picker->SetTolerance(0.5);
        }
    }

    std::array<vtkCellPicker*, 2> pickers() { return {direct, stock}; }

    vtkImageSliceMapper* mapper()
    {
        return vtkImageSliceMapper::SafeDownCast(image()->GetMapper());
    }

    /** Compares all that the image's style asks its picker for. */
    void compareAt(double x, double y)
    {
        SCOPED_TRACE(testing::Message() << "at " << x << ", " << y);
        const int hit = stock->Pick(x, y, 0.0, renderer());
        ASSERT_EQ(direct->Pick(x, y, 0.0, renderer()), hit);
        ASSERT_EQ(direct->GetPath() != nullptr, stock->GetPath() != nullptr);
        for (int axis = 0; axis < 3; ++axis) {
            ASSERT_EQ(direct->GetPointIJK()[axis], stock->GetPointIJK()[axis]);
            ASSERT_EQ(direct->GetSelectionPoint()[axis], stock->GetSelectionPoint()[axis]);
        }
        ASSERT_EQ(direct->GetRenderer(), renderer());
        ASSERT_EQ(direct->GetViewProp(), stock->GetViewProp());
        hits += hit;
        // Only the stock picker looks at the data that it hits.
        answered += hit != 0 && !direct->GetDataSet() ? 1 : 0;
    }

    /** Compares at every third pixel of the window and beyond its edges. */
    void compare()
    {
        hits = answered = 0;
        for (int y = -4; y < kHeight + 8; y += 3)
            for (int x = -4; x < kWidth + 8; x += 3)
                compareAt(x, y);
    }

    /** And that nearly all of the hits were answered without the stock picker. */
    void compareAnsweredAtOnce()
    {
        compare();
        EXPECT_GT(hits, 0);
        EXPECT_GT(answered, hits * 9 / 10);
    }

    /** And that none was. */
    void compareLeftToTheStockPicker()
    {
        compare();
        EXPECT_EQ(answered, 0);
    }

    std::vector<unsigned char> pixels = std::vector<unsigned char>(23 * 17, 90);
    vtkSmartPointer<ImagePicker> direct = make<ImagePicker>();
    vtkSmartPointer<vtkCellPicker> stock = make<vtkCellPicker>();
    int hits = 0;
    int answered = 0; // of the hits, without the stock picker
};

TEST_F(ImagePicking, HasItsName)
{
    EXPECT_STREQ(direct->GetClassName(), "ImagePicker");
    EXPECT_TRUE(direct->IsA("vtkCellPicker"));
}

TEST_F(ImagePicking, AnswersAsTheStockPickerOverTheWholeWindow)
{
    compareAnsweredAtOnce();
    EXPECT_GT(hits, 500);
}

TEST_F(ImagePicking, AnswersAsTheStockPickerAtEveryBorderOfPixels)
{
    // Exactly on the outline, on the borders between pixels, and just beside them.
    for (int row = -1; row <= 17; ++row)
        for (const double beside : {-2e-3, -5e-4, -1e-12, 0.0, 1e-12, 5e-4, 2e-3}) {
            const QPointF border = at(row + 0.5 + beside, row + 0.5);
            const QPointF centre = at(row + beside, row);
            compareAt(border.x() + 0.5, kHeight - 0.5 - border.y());
            compareAt(centre.x() + 0.5, kHeight - 0.5 - centre.y());
        }
    EXPECT_GT(hits, 150);
}

TEST_F(ImagePicking, AnswersAsTheStockPickerForAnyCamera)
{
    const std::pair<const char*, std::function<void()>> moves[] = {
        {"rolled", [&] { camera()->Roll(33.0); }},
        {"upside down", [&] { camera()->Roll(180.0); }},
        {"from behind", [&] { camera()->Azimuth(180.0); }},
        {"from aside", [&] { camera()->Azimuth(50.0); }},
        {"from above", [&] { camera()->Elevation(-40.0); }},
        {"near", [&] { camera()->Dolly(7.0); }},
        {"far", [&] { camera()->Dolly(0.4); }},
        {"zoomed", [&] { camera()->Zoom(1.7); }},
        {"aside", [&] { camera()->Yaw(5.0); }},
        {"off centre", [&] { camera()->SetWindowCenter(0.3, -0.2); }},
        {"in parallel", [&] { camera()->ParallelProjectionOn(); }},
        {"in parallel from aside",
            [&] {
                camera()->ParallelProjectionOn();
                camera()->Azimuth(50.0);
            }},
    };
    const auto before = make<vtkCamera>();
    before->DeepCopy(camera());
    for (const auto& [name, move] : moves) {
        SCOPED_TRACE(name);
        camera()->DeepCopy(before);
        move();
        renderer()->ResetCameraClippingRange();
        compareAnsweredAtOnce();
    }
}

TEST_F(ImagePicking, AnswersAsTheStockPickerWhereverTheImageStands)
{
    image()->AddPosition(4.0, -3.0, 2.0);
    compareAnsweredAtOnce();
    image()->SetScale(0.5, 0.75, 2.0);
    compareAnsweredAtOnce();
    image()->RotateZ(20.0);
    image()->RotateX(30.0);
    renderer()->ResetCameraClippingRange();
    compareAnsweredAtOnce();
    const auto transform = make<vtkTransform>();
    transform->Scale(-0.7, 0.9, 1.0);
    image()->SetUserTransform(transform);
    renderer()->ResetCamera();
    compareAnsweredAtOnce();
}

TEST_F(ImagePicking, LeavesAViewThatTheHostBendsToTheStockPicker)
{
    const auto tilt = make<vtkTransform>();
    tilt->RotateY(15.0);
    camera()->SetUserViewTransform(tilt);
    compareLeftToTheStockPicker();
    camera()->SetUserViewTransform(nullptr);
    camera()->SetUserTransform(tilt);
    compareLeftToTheStockPicker();
    camera()->SetUserTransform(nullptr);
    const auto projection = make<vtkMatrix4x4>();
    projection->DeepCopy(camera()->GetProjectionTransformMatrix(1.5, -1.0, 1.0));
    camera()->SetExplicitProjectionTransformMatrix(projection);
    camera()->UseExplicitProjectionTransformMatrixOn();
    compareLeftToTheStockPicker();
    camera()->UseExplicitProjectionTransformMatrixOff();
    compareAnsweredAtOnce();
}

TEST_F(ImagePicking, AnswersAsTheStockPickerInPartOfTheWindow)
{
    renderer()->SetViewport(0.25, 0.1, 0.9, 0.8);
    compareAnsweredAtOnce();
    render();
    resize({kWidth - 40, kHeight + 20});
    compareAnsweredAtOnce();
}

TEST_F(ImagePicking, AnswersAsTheStockPickerBetweenADrawAndItsRepaint)
{
    std::vector<unsigned char> larger(60 * 40, 10);
    draw(larger, 60, 1, 0);
    compareLeftToTheStockPicker();
    render();
    compareAnsweredAtOnce();
    view->redraw();
    compareAnsweredAtOnce();
    std::vector<unsigned char> smaller(7 * 5, 10);
    draw(smaller, 7, 1, 0);
    compareLeftToTheStockPicker();
    view->enableLookupTable(true);
    draw(larger, 40, 1, 0);
    compareLeftToTheStockPicker();
    render();
    compareAnsweredAtOnce();
}

TEST_F(ImagePicking, AnswersAsTheStockPickerForImagesOfOnePixelInADirection)
{
    for (const int width : {1, 3, 6}) {
        SCOPED_TRACE(width);
        std::vector<unsigned char> few(6, 10);
        draw(few, width, 1, 0);
        compare();
        compareAt(kWidth / 2.0, kHeight / 2.0);
        render();
        compare();
    }
}

TEST_F(ImagePicking, AnswersAsTheStockPickerAtExtremeDistances)
{
    for (const double factor : {1e-7, 1e-4, 1e-2, 1e2, 1e4, 1e7}) {
        SCOPED_TRACE(factor);
        view->resetCamera();
        camera()->Dolly(factor);
        renderer()->ResetCameraClippingRange();
        compare();
    }
}

TEST_F(ImagePicking, AnswersAsTheStockPickerOutsideTheClippingPlanes)
{
    const double distance = camera()->GetDistance();
    camera()->SetClippingRange(distance * 1.1, distance * 2.0);
    compare();
    EXPECT_EQ(hits, 0);
    camera()->SetClippingRange(distance * 0.1, distance * 0.9);
    compare();
    EXPECT_EQ(hits, 0);
    camera()->SetClippingRange(distance, distance * 2.0); // in the near plane
    compare();
    view->resetCamera();
    camera()->Yaw(180.0); // looks away
    compare();
    EXPECT_EQ(hits, 0);
}

TEST_F(ImagePicking, AnswersAsTheStockPickerFromTheEdge)
{
    for (const double angle : {89.0, 89.9999, 90.0, 90.0001, 91.0}) {
        SCOPED_TRACE(angle);
        view->resetCamera();
        camera()->Azimuth(angle);
        renderer()->ResetCameraClippingRange();
        compare();
    }
}

TEST_F(ImagePicking, AnswersAsTheStockPickerWithoutNumbers)
{
    camera()->SetPosition(std::numeric_limits<double>::quiet_NaN(), 0.0, 1.0);
    compareLeftToTheStockPicker();
}

TEST_F(ImagePicking, LeavesWhatIsNotShownWholeToTheStockPicker)
{
    mapper()->BorderOn();
    compareLeftToTheStockPicker();
    mapper()->BorderOff();
    mapper()->SetCroppingRegion(4, 12, 3, 9, 0, 0);
    mapper()->CroppingOn();
    compareLeftToTheStockPicker();
    mapper()->CroppingOff();
    mapper()->SetOrientationToX();
    compareLeftToTheStockPicker();
    mapper()->SetOrientationToZ();
    const auto plane = make<vtkPlane>();
    plane->SetOrigin(image()->GetPosition());
    plane->SetNormal(1.0, 1.0, 0.0);
    mapper()->AddClippingPlane(plane);
    compareLeftToTheStockPicker();
    mapper()->RemoveAllClippingPlanes();
    mapper()->SliceFacesCameraOn();
    compareLeftToTheStockPicker();
    mapper()->SliceFacesCameraOff();
    compareAnsweredAtOnce();
}

TEST_F(ImagePicking, LeavesWhatCannotBePickedToTheStockPicker)
{
    image()->PickableOff();
    compareLeftToTheStockPicker();
    EXPECT_EQ(hits, 0);
    image()->PickableOn();
    image()->VisibilityOff();
    compareLeftToTheStockPicker();
    EXPECT_EQ(hits, 0);
}

TEST_F(ImagePicking, LeavesAnythingButAListOfOneImageToTheStockPicker)
{
    direct->PickFromListOff();
    stock->PickFromListOff();
    compareLeftToTheStockPicker();
    EXPECT_GT(hits, 0);
    const auto other = make<vtkImageActor>();
    other->GetMapper()->SetInputConnection(mapper()->GetInputConnection(0, 0));
    for (vtkCellPicker* picker : pickers()) {
        picker->PickFromListOn();
        picker->AddPickList(other);
    }
    compareLeftToTheStockPicker();
    EXPECT_GT(hits, 0);
}

TEST_F(ImagePicking, FollowsTheImageOfTheList)
{
    compareAt(kWidth / 2.0, kHeight / 2.0);
    const auto other = make<vtkImageActor>();
    other->GetMapper()->SetInputConnection(mapper()->GetInputConnection(0, 0));
    other->SetPosition(image()->GetPosition());
    for (vtkCellPicker* picker : pickers()) {
        picker->InitializePickList();
        picker->AddPickList(other);
    }
    compareAnsweredAtOnce();
    compareAt(kWidth / 2.0, kHeight / 2.0);
    EXPECT_EQ(direct->GetViewProp(), other);
}

TEST_F(ImagePicking, ThePathCarriesTheImagesMatrix)
{
    for (const double shift : {0.0, 1.5}) {
        image()->AddPosition(shift, 0.0, 0.0);
        compareAt(kWidth / 2.0, kHeight / 2.0);
        ASSERT_TRUE(direct->GetPath());
        ASSERT_EQ(direct->GetPath()->GetNumberOfItems(), 1);
        const vtkMatrix4x4* const matrix = direct->GetPath()->GetFirstNode()->GetMatrix();
        for (int row = 0; row < 4; ++row)
            EXPECT_EQ(matrix->GetElement(row, 3), image()->GetMatrix()->GetElement(row, 3));
    }
}

TEST_F(ImagePicking, AMissForgetsTheHitBefore)
{
    compareAt(kWidth / 2.0, kHeight / 2.0);
    EXPECT_EQ(hits, 1);
    compareAt(0.0, 0.0);
    EXPECT_FALSE(direct->GetPath());
}

TEST_F(ImagePicking, TellsObserversWhatTheStockPickerTells)
{
    std::vector<unsigned long> told;
    const auto observer = make<vtkCallbackCommand>();
    observer->SetClientData(&told);
    observer->SetCallback([](vtkObject*, unsigned long event, void* list, void*) {
        static_cast<std::vector<unsigned long>*>(list)->push_back(event);
    });
    const auto events = [&](vtkCellPicker* picker, double x) {
        told.clear();
        image()->AddObserver(vtkCommand::PickEvent, observer);
        for (const auto event :
            {vtkCommand::StartPickEvent, vtkCommand::PickEvent, vtkCommand::EndPickEvent})
            picker->AddObserver(event, observer);
        picker->Pick(x, kHeight / 2.0, 0.0, renderer());
        image()->RemoveObserver(observer);
        picker->RemoveObserver(observer);
        return told;
    };
    for (const double x : {kWidth / 2.0, 1.0}) {
        const auto expected = events(stock, x);
        EXPECT_GE(expected.size(), 2u);
        EXPECT_EQ(events(direct, x), expected);
    }
}

TEST_F(ImagePicking, WithoutARendererNothingIsHit)
{
    compareAt(kWidth / 2.0, kHeight / 2.0);
    EXPECT_EQ(direct->Pick(kWidth / 2.0, kHeight / 2.0, 0.0, nullptr), 0);
    EXPECT_FALSE(direct->GetPath());
}

} // namespace
