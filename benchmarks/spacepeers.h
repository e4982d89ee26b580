// SPDX-License-Identifier: BSD-3-Clause
// What else a host could show a scanner's samples with, in the way in which its own manual does it
// for many of them.
#ifndef OVL_BENCHMARKS_SPACEPEERS_H
#define OVL_BENCHMARKS_SPACEPEERS_H

#include "spacerig.h"

namespace ovl::bench {

/** Samples of a pixel, as the window of the others has them by itself. */
constexpr int kSmoothness = 4;

} // namespace ovl::bench

#ifdef OVL_HAVE_DATAVISUALIZATION
#include <Q3DCamera>
#include <Q3DScatter>
#include <Q3DScene>
#include <Q3DSurface>
#include <Q3DTheme>
#include <QScatter3DSeries>
#include <QSurface3DSeries>

namespace ovl::bench {

constexpr QSize kPeerSize(800, 600); // as the widget of the others

/** A graph of Qt Data Visualization with its colours by height; the classes below hold the data. */
template <class Graph, class Series> struct DataVisualizationRig {
    DataVisualizationRig()
    {
        graph.setShadowQuality(QtDataVisualization::QAbstract3DGraph::ShadowQualityNone);
        graph.setOptimizationHints(QtDataVisualization::QAbstract3DGraph::OptimizationStatic);
        QLinearGradient colors;
        colors.setColorAt(0.0, Qt::blue);
        colors.setColorAt(1.0, Qt::red);
        series->setBaseGradient(colors);
        series->setColorStyle(QtDataVisualization::Q3DTheme::ColorStyleRangeGradient);
        graph.addSeries(series); // the graph's from here on
        graph.resize(kPeerSize);
        graph.show();
        QApplication::processEvents();
    }

    void resize(int samples) { grid = Grid(samples); }
    void look() { }
    /** The only way to draw at once, as smoothly as the others; it reads the picture back too. */
    void render()
    {
        const QImage picture = graph.renderToImage(kSmoothness, kPeerSize);
        benchmark::DoNotOptimize(picture.constBits());
    }
    void turn()
    {
        auto* camera = graph.scene()->activeCamera();
        camera->setXRotation(camera->xRotation() + 1.0F);
    }

    Grid grid {1};
    Series* series = new Series;
    Graph graph;
};

struct ScatterRig
    : DataVisualizationRig<QtDataVisualization::Q3DScatter, QtDataVisualization::QScatter3DSeries> {
    explicit ScatterRig(int samples)
    {
        series->setMesh(QtDataVisualization::QAbstract3DSeries::MeshPoint);
        resize(samples);
    }

    void fill(int frame)
    {
        points = new QtDataVisualization::QScatterDataArray(grid.size());
        eachSample(grid, frame, [this](int index, double x, double y, double z, double) {
            (*points)[index].setPosition(
                QVector3D(static_cast<float>(x), static_cast<float>(z), static_cast<float>(y)));
        });
    }
    void show() { series->dataProxy()->resetArray(points); } // takes it

    QtDataVisualization::QScatterDataArray* points = nullptr;
};

struct HeightsRig
    : DataVisualizationRig<QtDataVisualization::Q3DSurface, QtDataVisualization::QSurface3DSeries> {
    explicit HeightsRig(int samples)
    {
        series->setDrawMode(QtDataVisualization::QSurface3DSeries::DrawSurface);
        resize(samples);
    }

    void fill(int frame)
    {
        rows = new QtDataVisualization::QSurfaceDataArray;
        rows->reserve(grid.rows);
        for (int j = 0; j < grid.rows; ++j)
            *rows << new QtDataVisualization::QSurfaceDataRow(grid.columns);
        eachSample(grid, frame, [this](int index, double x, double y, double z, double) {
            (*(*rows)[index / grid.columns])[index % grid.columns].setPosition(
                QVector3D(static_cast<float>(x), static_cast<float>(z), static_cast<float>(y)));
        });
    }
    void show() { series->dataProxy()->resetArray(rows); } // takes it

    QtDataVisualization::QSurfaceDataArray* rows = nullptr;
};

} // namespace ovl::bench
#endif

#ifdef OVL_HAVE_PCL
#include <pcl/point_cloud.h>
#include <pcl/point_types.h>
#include <pcl/visualization/pcl_visualizer.h>

namespace ovl::bench {

/** The viewer of the Point Cloud Library, in a window of its own, coloured by the value. */
class PclRig {
public:
    explicit PclRig(int samples)
    {
        viewer.setSize(800, 600);
        viewer.getRenderWindow()->SetMultiSamples(kSmoothness);
        resize(samples);
    }

    void resize(int samples)
    {
        grid = Grid(samples);
        cloud->resize(static_cast<std::size_t>(grid.size()));
    }

    void fill(int frame)
    {
        eachSample(grid, frame, [this](int index, double x, double y, double z, double value) {
            pcl::PointXYZI& point = (*cloud)[static_cast<std::size_t>(index)];
            point.x = static_cast<float>(x);
            point.y = static_cast<float>(y);
            point.z = static_cast<float>(z);
            point.intensity = static_cast<float>(value);
        });
    }

    void show()
    {
        const pcl::visualization::PointCloudColorHandlerGenericField<pcl::PointXYZI> colors(
            cloud, "intensity");
        if (!viewer.updatePointCloud<pcl::PointXYZI>(cloud, colors))
            viewer.addPointCloud<pcl::PointXYZI>(cloud, colors);
    }

    void look() { viewer.resetCamera(); }
    void render() { viewer.getRenderWindow()->Render(); }
    void turn()
    {
        vtkRenderer* renderer = viewer.getRendererCollection()->GetFirstRenderer();
        renderer->GetActiveCamera()->Azimuth(1.0);
        renderer->ResetCameraClippingRange();
    }

private:
    Grid grid {1};
    pcl::PointCloud<pcl::PointXYZI>::Ptr cloud {new pcl::PointCloud<pcl::PointXYZI>};
    pcl::visualization::PCLVisualizer viewer {"cloud"};
};

} // namespace ovl::bench
#endif

#endif
