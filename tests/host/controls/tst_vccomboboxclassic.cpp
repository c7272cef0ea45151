#include <basicvaluewidgets/fieldsize.h>
#include <basicvaluewidgets/vccomboboxclassic.h>

#include <leftovers.h>
#include <messageguard.h>
#include <processorcost.h>
#include <recordingobserver.h>

#include <valueframework/valueselection.h>

#include <QAbstractItemView>
#include <QScrollArea>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyleFactory>
#include <QTest>
#include <QTranslator>
#include <QWheelEvent>

#include <memory>

namespace {

class Upper : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, "Rows") ? QString() : QString::fromUtf8(source).toUpper();
    }
};

QStringList entries(const QComboBox& box)
{
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts.append(box.itemText(i));
    return texts;
}

bool wheel(QWidget* widget, int notches)
{
    QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5).toPoint()), {},
                      QPoint(0, notches * 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

} // namespace

static QStringList words(const char* separated)
{
    return QString::fromLatin1(separated).split(QLatin1Char('|'));
}

class TestVCComboBoxClassic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showsItemsAndChoice();
    void userChoiceSelects();
    void listChooses();
    void keyboardChooses();
    void readOnlyBlocks();
    void wheelNeedsFocus();
    void followsTheItems();
    void vanishedChoiceIsBlank();
    void replacedWithinATransaction();
    void switchedOffItemsStay();
    void translatesNames();
    void undoAndRedo();
    void hintsAreTheStockOnesWithinTheEnds_data();
    void hintsAreTheStockOnesWithinTheEnds();
    void longEntriesAreWholeInTheList();
    void sizeHintFollowsItemsAndFont();
    void listenerMayDeleteTheValue();
    void addingOneByOneIsLinear();

private:
    std::unique_ptr<MessageGuard> m_guard;
    std::unique_ptr<values::ValueSelection> m_value;
    std::unique_ptr<VCComboBoxClassic> m_box;
};

void TestVCComboBoxClassic::init()
{
    m_guard = std::make_unique<MessageGuard>();
    m_guard->allow(QRegularExpression(QStringLiteral("^This plugin does not support"))); // offscreen
    m_value = std::make_unique<values::ValueSelection>(QStringLiteral("s"), ValueState::Normal);
    m_value->AddItems({QStringLiteral("AM"), QStringLiteral("FM"), QStringLiteral("SSB")}, nullptr);
    m_box = std::make_unique<VCComboBoxClassic>(nullptr, "box");
    m_box->SetValueSelection(m_value.get());
    m_box->show();
    QVERIFY(QTest::qWaitForWindowActive(m_box.get()));
}

void TestVCComboBoxClassic::cleanup()
{
    m_box.reset();
    m_value.reset();
    m_guard.reset();
    QCOMPARE(leftovers(), QString());
}

void TestVCComboBoxClassic::showsItemsAndChoice()
{
    QCOMPARE(entries(*m_box), words("AM|FM|SSB"));
    QCOMPARE(m_box->currentIndex(), -1);
    m_value->SelectIndex(1, nullptr);
    QCOMPARE(m_box->currentText(), QStringLiteral("FM"));
    m_value->SetStringValue(QString(), nullptr);
    QCOMPARE(m_box->currentIndex(), -1);
    QVERIFY(qobject_cast<QStandardItemModel*>(m_box->model()));
}

void TestVCComboBoxClassic::userChoiceSelects()
{
    RecordingObserver observer;
    observer.watch(m_value.get());
    m_box->setCurrentIndex(2);
    QCOMPARE(m_value->GetCurrentIndex(), 2l);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Content});
}

void TestVCComboBoxClassic::listChooses()
{
    QTest::mouseClick(m_box.get(), Qt::LeftButton);
    QTRY_VERIFY(m_box->view()->isVisible());
    QTest::keyClick(m_box->view(), Qt::Key_End);
    QCOMPARE(m_value->GetCurrentIndex(), -1l);
    QTest::keyClick(m_box->view(), Qt::Key_Return);
    QCOMPARE(m_value->GetCurrentIndex(), 2l);
    QCOMPARE(m_box->currentText(), QStringLiteral("SSB"));
}

void TestVCComboBoxClassic::keyboardChooses()
{
    m_value->SelectIndex(0, nullptr);
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QCOMPARE(m_value->GetStringValue(), QStringLiteral("FM"));
    QTest::keyClick(m_box.get(), Qt::Key_S);
    QCOMPARE(m_value->GetStringValue(), QStringLiteral("SSB"));
}

void TestVCComboBoxClassic::readOnlyBlocks()
{
    m_value->SelectIndex(0, nullptr);
    QVERIFY(m_box->setProperty("readOnly", true));
    m_box->setFocus();
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QTest::mouseClick(m_box.get(), Qt::LeftButton);
    wheel(m_box.get(), -1);
    m_box->showPopup();
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(m_value->GetCurrentIndex(), 0l);
    m_value->SelectIndex(2, nullptr);
    QCOMPARE(m_box->currentIndex(), 2);
}

void TestVCComboBoxClassic::wheelNeedsFocus()
{
    m_value->SelectIndex(0, nullptr);
    m_box->clearFocus();
    QVERIFY(!wheel(m_box.get(), -1));
    QCOMPARE(m_value->GetCurrentIndex(), 0l);
    m_box->setFocus();
    QVERIFY(wheel(m_box.get(), -1));
    QCOMPARE(m_value->GetCurrentIndex(), 1l);
}

void TestVCComboBoxClassic::followsTheItems()
{
    m_value->SelectIndex(1, nullptr);
    m_value->AddItem(QStringLiteral("CW"), 3, 4, nullptr);
    QCOMPARE(entries(*m_box), words("AM|FM|SSB|CW"));
    QCOMPARE(m_box->currentText(), QStringLiteral("FM"));
    m_value->DeleteItem(m_value->GetItemIndex(0), nullptr);
    QCOMPARE(entries(*m_box), words("FM|SSB|CW"));
    QCOMPARE(m_box->currentText(), QStringLiteral("FM"));
    m_value->DeleteItems(nullptr);
    QCOMPARE(m_box->count(), 0);
}

void TestVCComboBoxClassic::vanishedChoiceIsBlank()
{
    m_value->SelectIndex(1, nullptr);
    m_value->DeleteItems(nullptr);
    m_value->AddItem(QStringLiteral("AM"), 0, 1, nullptr);
    QCOMPARE(m_box->count(), 1);
    QCOMPARE(m_box->currentIndex(), -1);
    m_value->AddItem(QStringLiteral("FM"), 1, 2, nullptr);
    QCOMPARE(m_box->currentText(), QStringLiteral("FM"));
}

void TestVCComboBoxClassic::replacedWithinATransaction()
{
    m_value->StartTransaction(nullptr);
    m_value->DeleteItems(nullptr);
    m_value->AddItems(
        {QStringLiteral("AM"), QStringLiteral("other"), QStringLiteral("SSB"), QStringLiteral("CW")},
        nullptr);
    m_value->EndTransaction(ChangeCode::ItemChanged, nullptr);
    QTRY_COMPARE(entries(*m_box), words("AM|other|SSB|CW"));
}

void TestVCComboBoxClassic::switchedOffItemsStay()
{
    auto* model = qobject_cast<QStandardItemModel*>(m_box->model());
    model->item(1)->setEnabled(false);
    m_value->AddItem(QStringLiteral("CW"), 3, 4, nullptr);
    QCoreApplication::processEvents();
    QVERIFY(!model->item(1)->isEnabled());
    m_value->SelectIndex(1, nullptr);
    QCOMPARE(m_box->currentIndex(), 1);
}

void TestVCComboBoxClassic::translatesNames()
{
    m_value->SelectIndex(0, nullptr);
    m_value->DeleteItems(nullptr);
    m_value->AddItems({QStringLiteral("low"), QStringLiteral("high")}, nullptr);
    Upper translator;
    QCoreApplication::installTranslator(&translator);
    m_value->SetTranslationNamespace("Rows", nullptr);
    QCOMPARE(entries(*m_box), words("LOW|HIGH"));
    m_box->setCurrentIndex(1);
    QCOMPARE(m_value->GetStringValue(), QStringLiteral("high"));
    QCoreApplication::removeTranslator(&translator);
    QTRY_COMPARE(entries(*m_box), words("low|high"));
}

void TestVCComboBoxClassic::undoAndRedo()
{
    m_value->SelectIndex(0, nullptr);
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QTest::keyClick(m_box.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_value->GetCurrentIndex(), 1l);
    QTest::keyClick(m_box.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_value->GetCurrentIndex(), 0l);
    QTest::keyClick(m_box.get(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(m_value->GetCurrentIndex(), 1l);
}

void TestVCComboBoxClassic::hintsAreTheStockOnesWithinTheEnds_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("sheet");
    const QStringList names = words("AM|a rather long entry|SSB");
    for (const QString& style : {QStringLiteral("Fusion"), QStringLiteral("Windows")}) // what Qt always has
        QTest::newRow(qPrintable(style)) << names << style << QString();
    QTest::newRow("too long") << QStringList{QString(300, QLatin1Char('w'))} << "Fusion" << QString();
    QTest::newRow("no entries") << QStringList() << "Fusion" << QString();
    QTest::newRow("style sheet") << names << "Fusion"
                                 << "padding: 7px; font-size: 20pt";
    for (int size = 7; size < 20; size += 3)
        QTest::newRow(qPrintable(QStringLiteral("%1 points").arg(size)))
            << names << "Fusion" << QStringLiteral("font-size: %1pt").arg(size);
}

void TestVCComboBoxClassic::hintsAreTheStockOnesWithinTheEnds()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, style);
    QFETCH(QString, sheet);
    QStyle* used = QStyleFactory::create(style);
    used->setParent(qApp); // outlives the boxes
    m_value->DeleteItems(nullptr);
    m_value->AddItems(texts, nullptr);
    QComboBox stock;
    stock.addItems(texts);
    for (QComboBox* box : {static_cast<QComboBox*>(m_box.get()), &stock}) {
        box->setStyle(used);
        box->setStyleSheet(sheet);
    }
    stock.ensurePolished();
    const QSize least = stock.minimumSizeHint().boundedTo(
        QSize(FieldSize::UpperWidth(m_box.get()), stock.sizeHint().height()));
    const QSize common(FieldSize::CommonWidth(m_box.get()), FieldSize::CommonHeight(m_box.get()));
    QCOMPARE(m_box->minimumSizeHint(), least);
    QCOMPARE(m_box->minimumSizeHint(), least);
    QCOMPARE(m_box->sizeHint(), least.expandedTo(common));
}

void TestVCComboBoxClassic::longEntriesAreWholeInTheList()
{
    const QString longest(200, QLatin1Char('m'));
    m_value->AddItem(longest, 3, 4, nullptr);
    m_box->resize(m_box->sizeHint());
    m_box->show();
    m_box->showPopup();
    const int needed = m_box->fontMetrics().horizontalAdvance(longest);
    QVERIFY(m_box->width() < needed);
    QCOMPARE(m_box->view()->minimumWidth() > m_box->width(), true);
    m_box->hidePopup();
    m_value->SelectIndex(m_value->GetItemCount() - 1, nullptr);
    const QImage elided = m_box->grab().toImage();
    m_value->DeleteItem(m_value->GetItemIndex(m_value->GetItemCount() - 1), nullptr);
    QVERIFY(m_box->grab().toImage() != elided);
}

void TestVCComboBoxClassic::sizeHintFollowsItemsAndFont()
{
    const QSize before = m_box->sizeHint();
    m_value->AddItem(QStringLiteral("something much longer than before, and longer than other fields"), 3, 4,
                     nullptr);
    const QSize longer = m_box->sizeHint();
    QVERIFY(longer.width() > before.width());
    QFont font = m_box->font();
    font.setPointSize(font.pointSize() * 2);
    m_box->setFont(font);
    QVERIFY(m_box->sizeHint().width() > longer.width());
    m_value->DeleteItem(m_value->GetItemIndex(3), nullptr);
    m_box->setFont(QFont());
    QCOMPARE(m_box->sizeHint(), before);
}

void TestVCComboBoxClassic::listenerMayDeleteTheValue()
{
    connect(m_box.get(), QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { m_value.reset(); });
    m_value->SelectIndex(2, nullptr);
    QCOMPARE(m_box->currentText(), QStringLiteral("SSB"));
    QVERIFY(!m_box->isEnabled());
}

void TestVCComboBoxClassic::addingOneByOneIsLinear()
{
    const auto nanosecondsPerItem = [this](int count) {
        m_value->DeleteItems(nullptr);
        const auto addAll = [&] {
            for (int i = 0; i < count; ++i)
                m_value->AddItem(QString::number(i), i, i, nullptr);
        };
        return processorCost(addAll) / count;
    };
    const double few = leastOf([&] { return nanosecondsPerItem(200); });
    QVERIFY2(leastOf([&] { return nanosecondsPerItem(10000); }) < 15 * few,
             "adding an item grows with their number");
    QCOMPARE(m_box->count(), 10000);
    m_value->DeleteItems(nullptr);
}

QTEST_MAIN(TestVCComboBoxClassic)
#include "tst_vccomboboxclassic.moc"
