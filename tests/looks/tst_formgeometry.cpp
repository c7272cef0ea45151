// Generated forms at many widths, text sizes and styles: no control lies over
// another one, and none is cut off while a column has room. The ordinary run
// takes a sample; ZORVA_SWEEP=<n> takes n forms at every width and text size.
#include "generatedform.h"

#include <formtest.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvaparser.h>
#include <zorvaparser/zorvasheet.h>

#include <QApplication>
#include <QFont>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>
#include <memory>

namespace {

constexpr int textSizes[] = {9, 13, 17};
constexpr int narrowest = 300;
constexpr int widest = 1900;
constexpr int widthStep = 50;

/// A form in a window of its own, as a host shows it.
class ShownForm
{
public:
    explicit ShownForm(const QString& description)
        : m_formular(Orvane::ZorvaParser().ParseZORVA(description))
    {
        m_formular->CreateValueTree(QStringLiteral("/test"));
        m_formular->CreateGUI(true);
        m_window.reset(m_formular->GetGUI());
        m_window->show();
    }

    QWidget* window() const { return m_window.get(); }
    QScrollArea* area() const { return m_window->findChild<QScrollArea*>(); }
    QWidget* content() const { return area()->widget(); }
    void resize(int width, int height)
    {
        m_window->resize(width, height);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents();
    }

private:
    QExplicitlySharedDataPointer<Orvane::ZorvaFormular> m_formular;
    std::unique_ptr<QWidget> m_window;
};

struct Placed
{
    const QWidget* widget;
    QRect place; // in the content
};

bool isControl(const QWidget* widget)
{
    return !widget->inherits("CaptionLabel") && !widget->objectName().startsWith(QLatin1String("label")) &&
           widget->height() > 0;
}

/// The visible controls of a sheet; containers count by what they hold.
void collectControls(const QWidget* parent, const QWidget* content, QList<Placed>& found)
{
    for (const QObject* child : parent->children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (!widget || !widget->isVisible() || widget->isWindow() || !isControl(widget))
            continue;
        if (widget->metaObject() == &QWidget::staticMetaObject && !widget->children().isEmpty())
            collectControls(widget, content, found);
        else
            found.append({widget, QRect(widget->mapTo(content, QPoint()), widget->size())});
    }
}

QString named(const Placed& placed)
{
    const QRect& place = placed.place;
    return QStringLiteral("%1 [%2,%3 %4x%5]")
        .arg(placed.widget->objectName())
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height());
}

/// The first two controls that lie over each other; empty if none do.
QString overlap(QList<Placed> controls)
{
    std::sort(controls.begin(), controls.end(),
              [](const Placed& a, const Placed& b) { return a.place.top() < b.place.top(); });
    for (int i = 0; i < controls.size(); ++i) {
        for (int j = i + 1; j < controls.size(); ++j) {
            if (controls.at(j).place.top() > controls.at(i).place.bottom())
                break;
            if (controls.at(i).place.intersects(controls.at(j).place))
                return QStringLiteral("%1 lies over %2").arg(named(controls.at(i)), named(controls.at(j)));
        }
    }
    return QString();
}

/// The first control that ends right of the view; empty if none does.
QString cutOff(const QList<Placed>& controls, int viewWidth)
{
    for (const Placed& control : controls) {
        if (control.place.right() >= viewWidth)
            return QStringLiteral("%1 is cut off at %2").arg(named(control)).arg(viewWidth);
    }
    return QString();
}

QString faultAt(const ShownForm& form)
{
    QList<Placed> controls;
    collectControls(form.content(), form.content(), controls);
    const QString lying = overlap(controls);
    if (!lying.isEmpty())
        return lying;
    const int viewWidth = form.area()->viewport()->width();
    const auto* layout = qobject_cast<const FloatGroupLayout*>(form.content()->layout());
    const bool columnFits = layout->columnSize().width() < viewWidth;
    return columnFits ? cutOff(controls, viewWidth) : QString();
}

/// A scroll bar that is no longer needed goes in a turn of its own.
QString faultAtRest(const ShownForm& form)
{
    const QString fault = faultAt(form);
    if (fault.isEmpty())
        return fault;
    QCoreApplication::processEvents();
    return faultAt(form);
}

int wholeSweepForms()
{
    return qEnvironmentVariableIntValue("ZORVA_SWEEP");
}

} // namespace

class tst_FormGeometry : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_font = QApplication::font(); }
    void controlsKeepApart_data();
    void controlsKeepApart();

private:
    QFont m_font;
};

void tst_FormGeometry::controlsKeepApart_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("textSize");
    for (const QString& style : testedStyles()) {
        for (const int size : textSizes)
            QTest::addRow("%s at %d", qPrintable(style), size) << style << size;
    }
}

void tst_FormGeometry::controlsKeepApart()
{
    QFETCH(const QString, style);
    QFETCH(const int, textSize);
    QApplication::setStyle(style);
    QFont font = m_font;
    font.setPointSize(textSize);
    QApplication::setFont(font);
    constexpr int sampleForms = 12;
    const int forms = wholeSweepForms() ? wholeSweepForms() : sampleForms;
    const int step = wholeSweepForms() ? widthStep : 4 * widthStep;
    QStringList faults;
    int faultCount = 0;
    for (int seed = 1; seed <= forms; ++seed) {
        ShownForm form(generatedForm(static_cast<quint32>(seed)));
        const int first = wholeSweepForms() ? narrowest : narrowest + (seed % 4) * widthStep;
        for (int width = first; width <= widest; width += step) {
            form.resize(width, 700);
            const QString fault = faultAtRest(form);
            if (fault.isEmpty())
                continue;
            ++faultCount;
            if (faults.size() < 10)
                faults.append(QStringLiteral("form %1 at %2: %3").arg(seed).arg(width).arg(fault));
        }
    }
    QVERIFY2(faults.isEmpty(),
             qPrintable(QStringLiteral("%1 faults\n").arg(faultCount) + faults.join(QLatin1Char('\n'))));
}

QTEST_MAIN(tst_FormGeometry)
#include "tst_formgeometry.moc"
