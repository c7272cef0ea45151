// A form of many rows lives long: edited, applied, hidden, shown and rebuilt
// again and again, it must cost neither more memory nor more time at the end
// than it did at the beginning.
//   ZORVA_SOAK_ROUNDS=<n> ZORVA_SOAK_ROWS=<n> ZORVA_SOAK_LIFE=<rounds> tst_soak
#include "processfigures.h"

#include <formtest.h>
#include <formtext.h>
#include <valueframework/tree.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QPixmapCache>
#include <QSpinBox>

#include <algorithm>
#include <numeric>
#include <vector>

using Orvane::ZorvaFormular;
using Orvane::ZorvaParser;

namespace {

int setting(const char* name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

QString rowName(int index)
{
    return QStringLiteral("row%1").arg(index);
}

QString description(int rows)
{
    const char* const kinds[] = {"SpinBox", "CheckBox", "LineEdit", "ComboBox", "DoubleSpinBox"};
    QString widgets;
    for (int i = 0; i < rows; ++i) {
        const QByteArray name = rowName(i).toLatin1();
        if (i % 25 == 0)
            widgets += rowXml("Headline", ("group" + name).constData(), {{"text", "Group"}});
        widgets += rowXml(kinds[i % 5], name.constData(),
                          {{"labelText", QString::fromLatin1(name)},
                           {"minimum", 0},
                           {"maximum", 1000},
                           {"enumName", "choices"},
                           {"parameterXmlTag", QStringLiteral("Group%1/").arg(i / 25) + rowName(i)}});
    }
    const QString script =
        QStringLiteral("row0.valueChanged.connect(function(v) { row2.setText('heard ' + v); });");
    return formXml(widgets, enumXml("choices", {{"One", "ONE", "1"}, {"Two", "TWO", "2"}}), script,
                   {{"autoApplyTimeout", 100000000}});
}

/// A form and its window. There is none before the first build().
class Patient
{
public:
    explicit Patient(const QString& text)
        : m_text(text)
    {
    }
    Patient(const Patient&) = delete;
    Patient& operator=(const Patient&) = delete;
    ~Patient() { drop(); }

    void build()
    {
        drop();
        m_form = ZorvaParser().ParseZORVA(m_text);
        m_form->CreateValueTree(QStringLiteral("/soak"));
        m_form->CreateGUI(true);
        m_window = m_form->GetGUI();
        m_window->resize(700, 500);
        m_window->show();
        QCoreApplication::processEvents();
    }
    /// One edit by the user and one by the host, fetched; then out of sight and back.
    bool round(int number, int rows)
    {
        const int row = number % rows;
        auto* const spinBox = m_window->findChild<QAbstractSpinBox*>(rowName(row - row % 5));
        QTest::keyClick(spinBox, number % 2 ? Qt::Key_Up : Qt::Key_PageUp);
        m_form->SetVTValue(rowName((row / 5) * 5 + 2), QString::number(number), nullptr, false);
        QTest::mouseClick(m_window->findChild<QAbstractButton*>(QStringLiteral("applyButton")),
                          Qt::LeftButton);
        const QString changes = m_form->GetXmlString(true);
        m_form->SetXmlString(changes);
        m_window->hide();
        m_window->show();
        QCoreApplication::processEvents();
        return !changes.isEmpty();
    }

private:
    void drop()
    {
        m_form.reset();
        delete m_window;
    }

    QString m_text;
    QExplicitlySharedDataPointer<ZorvaFormular> m_form;
    QPointer<QWidget> m_window;
};

/// The middle one of the figures from `first` on, `count` of them.
qint64 middle(const std::vector<qint64>& figures, size_t first, size_t count)
{
    std::vector<qint64> some(figures.begin() + first, figures.begin() + first + count);
    std::nth_element(some.begin(), some.begin() + some.size() / 2, some.end());
    return some[some.size() / 2];
}

/// With what building takes, in whichever rounds it happens.
qint64 mean(const std::vector<qint64>& figures, size_t first, size_t count)
{
    const auto begin = figures.begin() + first;
    return std::accumulate(begin, begin + count, qint64(0)) / qint64(count);
}

} // namespace

class TestSoak : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void memoryAndTimeStayFlat();
};

void TestSoak::memoryAndTimeStayFlat()
{
    const int rows = setting("ZORVA_SOAK_ROWS", 100);
    const int rounds = setting("ZORVA_SOAK_ROUNDS", 300);
    const int roundsOfALife = setting("ZORVA_SOAK_LIFE", 10);
    const size_t part = rounds / 4;
    // Every new headline brings pictures of its own. Qt keeps the last ten
    // thousand, and the keys of others until a timer of its own: megabytes that
    // come and go, and hide what a form leaves behind.
    QPixmapCache::setCacheLimit(0);
    std::vector<qint64> allocated;
    std::vector<qint64> resident;
    std::vector<qint64> microseconds;
    {
        const QString text = description(rows);
        Patient patient(text);
        for (int i = 0; i < rounds; ++i) {
            const qint64 start = ProcessFigures::processorMicroseconds();
            if (i % roundsOfALife == 0)
                patient.build();
            QVERIFY(patient.round(i, rows));
            microseconds.push_back(ProcessFigures::processorMicroseconds() - start);
            allocated.push_back(ProcessFigures::allocatedBytes());
            resident.push_back(ProcessFigures::residentBytes());
        }
    }
    // The first quarter warms fonts, icons and caches.
    const qint64 timeBefore = mean(microseconds, part, part);
    const qint64 timeAfter = mean(microseconds, rounds - part, part);
    const qint64 heldBefore = middle(allocated, part, part);
    const qint64 heldAfter = middle(allocated, rounds - part, part);
    const qint64 residentBefore = middle(resident, part, part);
    const qint64 residentAfter = middle(resident, rounds - part, part);
    qInfo("%d rows, %d rounds, rebuilt every %d: %lld us a round in the second quarter, %lld us in the last; "
          "allocated %lld kB and %lld kB, resident %lld kB and %lld kB",
          rows, rounds, roundsOfALife, timeBefore, timeAfter, heldBefore / 1024, heldAfter / 1024,
          residentBefore / 1024, residentAfter / 1024);

    const qint64 leakOfAByteARow = qint64(rows) * rounds / 2;
    QVERIFY2(heldAfter - heldBefore < qMax<qint64>(200 * 1024, leakOfAByteARow), "allocated memory grows");
    QVERIFY2(ProcessFigures::allocatedBytes() == 0 || residentAfter < residentBefore + residentBefore / 5,
             "resident memory grows");
    QVERIFY2(timeAfter < timeBefore * 2, "rounds take longer and longer");
}

QTEST_MAIN(TestSoak)
#include "tst_soak.moc"
