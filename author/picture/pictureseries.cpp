#include "pictureseries.h"

#include "formstage.h"
#include "layoutlints.h"

#include <QBuffer>

namespace Orvane {
namespace Author {

namespace {

/** Why the form cannot be put on the stage as wished; empty if it can. */
QString prepare(const FormStage& stage, const PictureWish& wish)
{
    if (!stage.exists())
        return QStringLiteral("there is no form in it");
    if (!wish.parameters.isEmpty())
        stage.form().SetXmlString(wish.parameters);
    return QString();
}

QString collapse(FormStage& stage, const QStringList& headlines)
{
    if (headlines.isEmpty())
        return QString();
    const QStringList unknown = stage.collapse(stage.form().GetSheet().GetCollapsed() + headlines);
    return unknown.isEmpty() ? QString() : QStringLiteral("there is no group \"%1\"").arg(unknown.first());
}

QString take(FormStage& stage, int width, int fontSize, PictureSeries& series)
{
    const QSize size = stage.arrange(width);
    if (size.width() > width)
        return QStringLiteral("it is never narrower than %1 pixels").arg(size.width());
    if (size.height() >= FormStage::tallest)
        return QStringLiteral("its picture would be higher than %1 pixels").arg(FormStage::tallest);
    FormGeometry geometry = geometryOf(stage);
    geometry.fontSize = fontSize;
    geometry.findings = layoutFindings(geometry);
    series.geometries.append(geometry);
    series.images.append(stage.picture());
    return QString();
}

QString takeAll(FormStage& stage, const PictureWish& wish, PictureSeries& series)
{
    for (const int fontSize : wish.fontSizes) {
        stage.setTextSize(fontSize);
        const QVector<int> widths = wish.widths.isEmpty() ? QVector<int>{stage.openingWidth()} : wish.widths;
        for (const int width : widths) {
            const QString problem = take(stage, width, fontSize, series);
            if (!problem.isEmpty())
                return problem;
        }
    }
    return QString();
}

} // namespace

PictureSeries takePictures(const PictureWish& wish)
{
    PictureSeries series;
    FormStage stage(wish.description, FormStage::WithBar, wish.name);
    series.problem = prepare(stage, wish);
    if (series.problem.isEmpty())
        series.problem = collapse(stage, wish.collapsed);
    if (series.problem.isEmpty())
        series.problem = takeAll(stage, wish, series);
    return series;
}

QByteArray pngOf(const QImage& image)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

} // namespace Author
} // namespace Orvane
