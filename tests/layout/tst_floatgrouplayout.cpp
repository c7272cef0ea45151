#include <layout/floatgrouplayout.h>

#include "fakeitem.h"
#include "layoutprobe.h"
#include "referencearrangement.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QResizeEvent>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using Probe = FloatGroupLayoutProbe;

namespace {

enum {
    NewRow = FloatGroupLayout::FlagNewRow,
    Head = NewRow | FloatGroupLayout::FlagSectionHead,
    Label = NewRow | FloatGroupLayout::FlagLabel,
    Special = FloatGroupLayout::FlagSpecial
};

// A layout of fake items on a content widget of its own.
class Form
{
public:
    FakeItem* add(int flags, int width, int height, int topMargin = 0)
    {
        Probe::mark(layout, flags);
        QWidget* widget = nullptr;
        if (topMargin) {
            heads.push_back(std::make_unique<QWidget>());
            widget = heads.back().get();
            widget->setContentsMargins(0, topMargin, 0, 0);
        }
        auto* item = new FakeItem(QSize(width, height), widget);
        layout.addItem(item);
        return item;
    }
    QRect rect(int index) const { return Probe::hints(layout).value(index); }
    // As a pass at a new width would have it.
    QSize arrange(int width, int columns = 0)
    {
        layout.invalidate();
        return Probe::arrange(layout, width, columns);
    }

    std::vector<std::unique_ptr<QWidget>> heads;
    QWidget content;
    FloatGroupLayout& layout = *new FloatGroupLayout(&content);
};

void addExample(Form& form)
{
    form.add(Head, 80, 18);
    form.add(Label, 60, 20);
    form.add(0, 100, 22);
    form.add(Label, 40, 20);
    form.add(0, 120, 22);
    form.add(Head, 90, 18, 6);
    form.add(Label, 70, 20);
    form.add(0, 100, 22);
    form.add(Label, 50, 20);
    form.add(0, 80, 22);
    form.add(Head, 70, 18, 6);
    form.add(Label, 90, 20);
    form.add(0, 140, 22);
}

ReferenceItem randomItem(QRandomGenerator& random)
{
    static const int kinds[] = {Head, Label, Label, Label, 0, 0, 0, 0, NewRow, Special, NewRow | Special};
    ReferenceItem item;
    item.flags = kinds[random.bounded(int(std::size(kinds)))];
    item.hint = random.bounded(5) ? QSize(random.bounded(1, 200), random.bounded(1, 60)) : QSize(0, 0);
    item.topMargin = (item.flags & 2) ? random.bounded(12) : 0;
    return item;
}

} // namespace

class tst_FloatGroupLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaults();
    void flagsAreRecordedForTheNextItem();
    void fieldsOfSeveralFollowTheWidestFirstField();
    void fieldOfSeveralMayOutliveItsLayout();
    void columnSizeLeavesTheArrangement();
    void groupBeforeLabelIsOneRow();
    void marksDoNotCloseUpAfterTakeAt();
    void addRowNamesTheLabel();
    void addRowWithoutWidget();
    void headline_data();
    void headline();
    void headlineKeepsItsMargins();
    void sectionAndSeparator();
    void indexOutOfRange();
    void removeAllWidgetsKeepsTheSize();
    void removeAllWidgetsStopsAtANullItem();
    void removeAllWidgetsWithNestedWidgets();
    void destructorLeavesTheWidgets();
    void areaMayDieFirst();
    void resizeOfTheAreaIsConsumed();

    void exampleSections();
    void example_data();
    void example();
    void hintsAreAskedOncePerArrangement();
    void firstQuerySettlesTheArrangement();
    void addingClearsTheArrangement();
    void spacingCountsFromTheNextArrangement();
    void emptiedByTakeAt();
    void minimumSizeIsTheFirstItem();
    void withoutHeadsOneColumn();
    void trailingHeadStartsNoSection();
    void firstHeadHasNoMargin();
    void secondOfTwoHeadsJoins();
    void columnsRunOut();
    void exactWidthOverflows();
    void wrap();
    void wrapInSecondColumnGoesToTheLeftEdge();
    void labelHeight();
    void hiddenRowTakesNoSpace();
    void specialKeepsItsWidth();
    void headIsCutToTheWidth();
    void areaLimitsTheWidth();
    void setGeometryPlacesAll();
    void setGeometryStopsWhenInvalidated();
    void listWidgetsFollow();
    void hugeHintsDoNotRunOver();

    void randomForms();
    void arrangementIsLinear();
};

void tst_FloatGroupLayout::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_FloatGroupLayout::defaults()
{
    Form form;
    QCOMPARE(form.layout.sizeConstraint(), QLayout::SetNoConstraint);
    QCOMPARE(form.layout.alignment(), Qt::Alignment(Qt::AlignTop));
    QCOMPARE(form.layout.expandingDirections(), Qt::Orientations(Qt::Vertical));
    QVERIFY(form.layout.hasHeightForWidth());
    QCOMPARE(form.layout.count(), 0);
    QCOMPARE(form.layout.sizeHint(), QSize(0, 0));
    QCOMPARE(form.layout.minimumSize(), QSize(4, 4));
}

void tst_FloatGroupLayout::flagsAreRecordedForTheNextItem()
{
    Form form;
    form.layout.addLabel(QStringLiteral("A"), "a");
    form.layout.addWidget(new QLineEdit);
    form.layout.addGroup();
    form.layout.addWidget(new QLineEdit);
    QCOMPARE(Probe::flags(form.layout), (QList<int>{5, 0, 1, 0}));
    form.layout.addSpecial();
    form.layout.addGroup();
    form.layout.addWidget(new QLineEdit);
    form.layout.addList();
    form.layout.addWidget(new QLineEdit);
    form.layout.addHeadline(QStringLiteral("H"), 0, "h");
    form.layout.addSection("s");
    form.layout.addSeparator(3, "p");
    QCOMPARE(Probe::flags(form.layout).mid(3, 5), (QList<int>{9, 16, 3, 3, 1}));
    QCOMPARE(form.layout.count(), 8);
}

void tst_FloatGroupLayout::fieldsOfSeveralFollowTheWidestFirstField()
{
    Form form;
    form.layout.addLabel(QStringLiteral("A"), "a");
    auto* first = new QWidget;
    auto* second = new QWidget;
    for (QWidget* field : {first, second}) {
        field->setFixedHeight(10);
        field->setMinimumWidth(60);
        form.layout.addFieldOfSeveral(field);
    }
    QCOMPARE(Probe::flags(form.layout), (QList<int>{5, 0, 0, 0}));
    QCOMPARE(form.layout.itemAt(1)->sizeHint(), QSize(60, 10));
    const auto addField = [&form](int width) {
        form.layout.addLabel(QStringLiteral("B"), "b");
        auto* item = new FakeItem(QSize(width, 10));
        form.layout.addItem(item);
        form.layout.addGroup();
        return item;
    };
    addField(90);
    form.layout.addSpecial();
    form.layout.addItem(new FakeItem(QSize(300, 10))); // keeps its own width and counts for nobody
    QCOMPARE(form.layout.itemAt(1)->sizeHint(), QSize(90, 10));
    QCOMPARE(form.layout.itemAt(2)->sizeHint(), QSize(90, 10));
    addField(140);
    QCOMPARE(form.layout.itemAt(2)->sizeHint(), QSize(140, 10));
    second->setMinimumWidth(200); // no first field: it is not followed
    form.layout.invalidate();
    QCOMPARE(form.layout.itemAt(1)->sizeHint(), QSize(140, 10));
    QCOMPARE(form.layout.itemAt(2)->sizeHint(), QSize(200, 10));
    second->hide();
    form.layout.invalidate();
    QCOMPARE(form.layout.itemAt(2)->sizeHint(), QSize(0, 0));
}

void tst_FloatGroupLayout::fieldOfSeveralMayOutliveItsLayout()
{
    std::unique_ptr<QLayoutItem> taken;
    QWidget field;
    {
        Form form;
        form.layout.addFieldOfSeveral(&field);
        taken.reset(form.layout.takeAt(0));
        field.setParent(nullptr);
    }
    QCOMPARE(taken->sizeHint(), QWidgetItem(&field).sizeHint());
}

void tst_FloatGroupLayout::columnSizeLeavesTheArrangement()
{
    Form form;
    addExample(form);
    const QSize column(233, 204);
    QCOMPARE(form.layout.columnSize(), column);
    const QSize wide = Probe::arrange(form.layout, 1000, 0);
    QVERIFY(wide.width() > column.width());
    const QVector<QRect> hints = Probe::hints(form.layout);
    const int generation = Probe::generation(form.layout);
    QCOMPARE(form.layout.columnSize(), column);
    QCOMPARE(Probe::hints(form.layout), hints);
    QCOMPARE(Probe::generation(form.layout), generation);
    QCOMPARE(Probe::arrange(form.layout, 10, 1), wide);
}

void tst_FloatGroupLayout::groupBeforeLabelIsOneRow()
{
    Form form;
    form.layout.addGroup();
    form.layout.addGroup();
    form.layout.addLabel(QStringLiteral("A"), "a");
    QCOMPARE(Probe::flags(form.layout).first(), 5);
    QCOMPARE(form.layout.count(), 1);
}

void tst_FloatGroupLayout::marksDoNotCloseUpAfterTakeAt()
{
    Form form;
    addExample(form);
    const QList<int> before = Probe::flags(form.layout);
    const int generation = Probe::generation(form.layout);
    delete form.layout.takeAt(1);
    QCOMPARE(Probe::flags(form.layout), before);
    QCOMPARE(Probe::generation(form.layout), generation);
}

void tst_FloatGroupLayout::addRowNamesTheLabel()
{
    Form form;
    auto* edit = new QLineEdit;
    edit->setObjectName(QStringLiteral("Gain"));
    form.layout.addRow(QStringLiteral("Gain:"), edit);
    auto* label = qobject_cast<QLabel*>(form.layout.itemAt(0)->widget());
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("Gain:"));
    QCOMPARE(label->objectName(), QStringLiteral("labelGain"));
    QCOMPARE(label->parentWidget(), &form.content);
    QCOMPARE(form.layout.itemAt(1)->widget(), edit);
    form.layout.addWidget(new QLineEdit);
    QCOMPARE(Probe::flags(form.layout).mid(0, 3), (QList<int>{5, 0, 0}));
}

void tst_FloatGroupLayout::addRowWithoutWidget()
{
    Form form;
    form.layout.addRow(QStringLiteral("Alone"), nullptr);
    QCOMPARE(form.layout.count(), 1);
    QCOMPARE(form.layout.itemAt(0)->widget()->objectName(), QStringLiteral("label"));
}

void tst_FloatGroupLayout::headline_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("fixedHeight"); // 0: none
    QTest::addColumn<int>("top");
    QTest::newRow("line, odd margin") << QString() << 9 << 9 << 5;
    QTest::newRow("line, no margin") << QString() << 0 << 5 << 0;
    QTest::newRow("line, smallest margin") << QString() << 1 << 5 << 1;
    QTest::newRow("title") << QStringLiteral("Gain") << 9 << 0 << 9;
}

void tst_FloatGroupLayout::headline()
{
    QFETCH(QString, text);
    QFETCH(int, margin);
    QFETCH(int, fixedHeight);
    QFETCH(int, top);
    Form form;
    QGroupBox* box = form.layout.addHeadline(text, margin, "head");
    QCOMPARE(box->title(), text);
    QCOMPARE(box->objectName(), QStringLiteral("head"));
    QCOMPARE(box->alignment(), int(Qt::AlignHCenter));
    QVERIFY(box->isFlat());
    QCOMPARE(box->parentWidget(), &form.content);
    QCOMPARE(box->contentsMargins(), QMargins(0, top, 0, 0));
    QCOMPARE(box->minimumHeight(), fixedHeight);
    QCOMPARE(box->maximumHeight(), fixedHeight ? fixedHeight : QWIDGETSIZE_MAX);
}

void tst_FloatGroupLayout::headlineKeepsItsMargins()
{
    Form form;
    QGroupBox* box = form.layout.addHeadline(QStringLiteral("Gain"), 7, "head");
    const QMargins given(0, 7, 0, 0);
    box->setCheckable(true);
    QCOMPARE(box->contentsMargins(), given);
    box->setStyleSheet(QStringLiteral("QGroupBox::indicator:checked {width: 30px;}"));
    box->ensurePolished();
    QCOMPARE(box->contentsMargins(), given);
    form.content.show();
    QFont font = box->font();
    font.setPointSize(font.pointSize() + 8);
    box->setFont(font);
    QCOMPARE(box->contentsMargins(), given);
    box->setTitle(QStringLiteral("Another"));
    form.content.resize(700, 300);
    QCoreApplication::processEvents();
    QCOMPARE(box->contentsMargins(), given);
    QCOMPARE(QLatin1String(box->metaObject()->className()), QLatin1String("QGroupBox"));
}

void tst_FloatGroupLayout::sectionAndSeparator()
{
    Form form;
    form.layout.addSection("section");
    QWidget* head = form.layout.itemAt(0)->widget();
    QCOMPARE(head->objectName(), QStringLiteral("section"));
    QCOMPARE(head->minimumHeight(), 2);
    QCOMPARE(head->maximumHeight(), 2);
    QWidget* separator = form.layout.addSeparator(11, "gap");
    QCOMPARE(separator, form.layout.itemAt(1)->widget());
    QCOMPARE(separator->objectName(), QStringLiteral("gap"));
    QCOMPARE(separator->minimumHeight(), 11);
    QCOMPARE(separator->maximumHeight(), 11);
    QVERIFY(form.layout.addLabel(QString(), nullptr)->objectName().isEmpty());
}

void tst_FloatGroupLayout::indexOutOfRange()
{
    Form form;
    FakeItem* item = form.add(0, 10, 10);
    QVERIFY(!form.layout.itemAt(-1));
    QVERIFY(!form.layout.itemAt(1));
    QVERIFY(!form.layout.takeAt(-1));
    QVERIFY(!form.layout.takeAt(1));
    QCOMPARE(form.layout.itemAt(0), item);
}

void tst_FloatGroupLayout::removeAllWidgetsKeepsTheSize()
{
    Form form;
    form.layout.addLabel(QStringLiteral("A label"), "a");
    QPointer<QWidget> edit = new QLineEdit;
    form.layout.addWidget(edit);
    const QSize before = form.layout.sizeHint();
    const int generation = Probe::generation(form.layout);
    form.layout.removeAllWidgets();
    QVERIFY(!edit);
    QCOMPARE(form.layout.count(), 0);
    QVERIFY(form.content.findChildren<QWidget*>().isEmpty());
    QVERIFY(Probe::flags(form.layout).isEmpty());
    QCOMPARE(Probe::generation(form.layout), generation);
    QCOMPARE(form.layout.sizeHint(), before);
    form.add(0, 30, 10);
    QCOMPARE(form.layout.sizeHint(), QSize(29, 10));
}

void tst_FloatGroupLayout::removeAllWidgetsStopsAtANullItem()
{
    Form form;
    form.layout.addItem(nullptr);
    form.layout.addWidget(new QLineEdit);
    form.layout.removeAllWidgets();
    QCOMPARE(form.layout.count(), 1);
    QCOMPARE(Probe::flags(form.layout).count(), 1);
    QVERIFY(form.layout.sizeHint().isValid());
}

void tst_FloatGroupLayout::removeAllWidgetsWithNestedWidgets()
{
    Form form;
    auto* outer = new QWidget;
    form.layout.addWidget(outer);
    auto* inner = new QLabel;
    form.layout.addWidget(inner);
    inner->setParent(outer);
    form.layout.removeAllWidgets();
    QCOMPARE(form.layout.count(), 0);
}

void tst_FloatGroupLayout::destructorLeavesTheWidgets()
{
    QWidget content;
    auto* layout = new FloatGroupLayout(&content);
    QPointer<QLabel> label = layout->addLabel(QStringLiteral("A"), "a");
    delete layout;
    QVERIFY(label);
}

void tst_FloatGroupLayout::areaMayDieFirst()
{
    auto area = std::make_unique<QScrollArea>();
    area->setWidget(new QWidget);
    auto* layout = new FloatGroupLayout(area.get());
    layout->addLabel(QStringLiteral("A"), "a");
    const std::unique_ptr<QWidget> content(area->takeWidget());
    layout->setGeometry(QRect(0, 0, 100, 100));
    area.reset();
    layout->invalidate();
    layout->setGeometry(QRect(0, 0, 100, 100));
    QVERIFY(layout->heightForWidth(50) > 0);
}

void tst_FloatGroupLayout::resizeOfTheAreaIsConsumed()
{
    QScrollArea area;
    area.setWidget(new QWidget);
    auto* layout = new FloatGroupLayout(&area);
    layout->addItem(new FakeItem(QSize(10, 10)));
    layout->sizeHint();
    QResizeEvent resize(QSize(5, 5), QSize(9, 9));
    QEvent show(QEvent::Show);
    QVERIFY(!layout->eventFilter(area.viewport(), &resize));
    QVERIFY(!layout->eventFilter(&area, &show));
    QCOMPARE(Probe::hints(*layout).count(), 1);
    QVERIFY(layout->eventFilter(&area, &resize));
    QVERIFY(Probe::hints(*layout).isEmpty());
}

void tst_FloatGroupLayout::exampleSections()
{
    Form form;
    addExample(form);
    const QList<FloatGroupColumn> sections = Probe::sections(form.layout);
    const int expected[][5] = {{0, 60, 120, 124, 84}, {5, 70, 100, 104, 94}, {10, 90, 140, 144, 74}};
    QCOMPARE(sections.count(), 3);
    for (int i = 0; i < 3; ++i) {
        const FloatGroupColumn& section = sections.at(i);
        QCOMPARE(section.first, expected[i][0]);
        QCOMPARE(section.labelWidth, expected[i][1]);
        QCOMPARE(section.fieldWidth, expected[i][2]);
        QCOMPARE(section.rowWidth, expected[i][3]);
        QCOMPARE(section.sectionWidth, expected[i][4]);
        QCOMPARE(section.x, 0);
        QCOMPARE(section.y, 0);
    }
}

void tst_FloatGroupLayout::example_data()
{
    using Rects = QMap<int, QRect>;
    QTest::addColumn<int>("width");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Rects>("rects");
    QTest::newRow("three columns") << 1000 << QSize(607, 70)
                                   << Rects{{0, {0, 0, 184, 18}},    {1, {0, 22, 60, 24}},
                                            {2, {64, 22, 120, 22}},  {3, {0, 48, 60, 24}},
                                            {4, {64, 48, 120, 22}},  {5, {192, 0, 174, 18}},
                                            {6, {192, 22, 70, 24}},  {7, {266, 22, 100, 22}},
                                            {8, {192, 48, 70, 24}},  {9, {266, 48, 100, 22}},
                                            {10, {374, 0, 234, 18}}, {11, {374, 22, 90, 24}},
                                            {12, {468, 22, 140, 22}}};
    QTest::newRow("two columns") << 500 << QSize(435, 150)
                                 << Rects{{0, {0, 0, 194, 18}},    {2, {74, 22, 120, 22}},
                                          {5, {0, 80, 194, 18}},   {7, {74, 102, 120, 22}},
                                          {9, {74, 128, 120, 22}}, {10, {202, 0, 234, 18}},
                                          {12, {296, 22, 140, 22}}};
    QTest::newRow("one column") << 300 << QSize(233, 204)
                                << Rects{{0, {0, 0, 234, 18}},
                                         {5, {0, 80, 234, 18}},
                                         {10, {0, 160, 234, 18}},
                                         {12, {94, 182, 140, 22}}};
}

void tst_FloatGroupLayout::example()
{
    using Rects = QMap<int, QRect>;
    QFETCH(int, width);
    QFETCH(QSize, size);
    QFETCH(Rects, rects);
    Form form;
    addExample(form);
    form.layout.setGeometry(QRect(0, 0, width, 50));
    for (auto it = rects.cbegin(); it != rects.cend(); ++it)
        QCOMPARE(form.layout.itemAt(it.key())->geometry(), it.value());
    QCOMPARE(form.layout.sizeHint(), size);
}

void tst_FloatGroupLayout::hintsAreAskedOncePerArrangement()
{
    Form form;
    form.add(0, 10, 10);
    FakeItem* item = form.add(0, 10, 10);
    form.layout.setGeometry(QRect(0, 0, 100, 100));
    form.layout.heightForWidth(50);
    form.layout.heightForWidth(20);
    form.layout.sizeHint();
    QCOMPARE(item->queries, 1);
}

void tst_FloatGroupLayout::firstQuerySettlesTheArrangement()
{
    Form form;
    addExample(form);
    QCOMPARE(form.layout.sizeHint(), QSize(233, 204));
    QCOMPARE(form.layout.heightForWidth(1000), 204);
    form.layout.invalidate();
    QCOMPARE(form.layout.heightForWidth(1000), 70);
    QCOMPARE(form.layout.sizeHint(), QSize(607, 70));
}

void tst_FloatGroupLayout::addingClearsTheArrangement()
{
    Form form;
    form.add(NewRow, 30, 10);
    QCOMPARE(form.layout.sizeHint(), QSize(29, 10));
    form.add(NewRow, 50, 10);
    QCOMPARE(form.layout.sizeHint(), QSize(49, 24));
}

void tst_FloatGroupLayout::spacingCountsFromTheNextArrangement()
{
    Form form;
    form.add(NewRow, 30, 10);
    form.add(0, 30, 10);
    form.add(NewRow, 30, 10);
    QCOMPARE(form.layout.sizeHint(), QSize(63, 24));
    form.layout.setHorizontalSpacing(10);
    form.layout.setVerticalSpacing(7);
    QCOMPARE(form.layout.sizeHint(), QSize(63, 24));
    form.layout.invalidate();
    QCOMPARE(form.layout.sizeHint(), QSize(69, 27));
}

void tst_FloatGroupLayout::emptiedByTakeAt()
{
    Form form;
    form.add(0, 30, 10);
    QCOMPARE(form.layout.sizeHint(), QSize(29, 10));
    delete form.layout.takeAt(0);
    QCOMPARE(form.layout.sizeHint(), QSize(0, 0));
}

void tst_FloatGroupLayout::minimumSizeIsTheFirstItem()
{
    Form form;
    form.layout.setHorizontalSpacing(3);
    form.layout.setVerticalSpacing(8);
    QCOMPARE(form.layout.minimumSize(), QSize(3, 8));
    form.add(0, 30, 10);
    form.add(0, 90, 80);
    QCOMPARE(form.layout.minimumSize(), QSize(30, 10));
}

void tst_FloatGroupLayout::withoutHeadsOneColumn()
{
    Form form;
    for (int i = 0; i < 8; ++i) {
        form.add(Label, 20, 10);
        form.add(0, 30, 10);
    }
    QCOMPARE(Probe::columns(form.layout, 100000).count(), 1);
    QCOMPARE(form.arrange(100000), QSize(53, 7 * 14 + 10));
}

void tst_FloatGroupLayout::trailingHeadStartsNoSection()
{
    Form form;
    form.add(Head, 20, 10);
    form.add(NewRow, 60, 10);
    form.add(Head, 20, 10, 5);
    form.add(NewRow, 0, 0);
    QCOMPARE(Probe::sections(form.layout).count(), 1);
    form.arrange(1000);
    QCOMPARE(form.rect(2), QRect(0, 33, 64, 10));
}

void tst_FloatGroupLayout::firstHeadHasNoMargin()
{
    Form form;
    form.add(Head, 20, 10, 5);
    form.add(NewRow, 60, 10);
    QCOMPARE(Probe::sections(form.layout).count(), 1);
    form.arrange(1000);
    QCOMPARE(form.rect(0), QRect(0, 0, 64, 10));
}

void tst_FloatGroupLayout::secondOfTwoHeadsJoins()
{
    Form form;
    form.add(NewRow, 60, 10);
    form.add(Head, 20, 10);
    form.add(NewRow, 0, 0);
    form.add(Head, 20, 10);
    form.add(NewRow, 60, 10);
    const QList<FloatGroupColumn> sections = Probe::sections(form.layout);
    QCOMPARE(sections.count(), 2);
    QCOMPARE(sections.at(1).first, 1);
}

void tst_FloatGroupLayout::columnsRunOut()
{
    Form form;
    for (int i = 0; i < 5; ++i) {
        form.add(Head, 20, 10);
        form.add(NewRow, 88, 10);
    }
    // Five columns need 500; the fifth runs over, and four hold 2, 2, 1 and 0.
    const QList<FloatGroupColumn> columns = Probe::columns(form.layout, 450);
    QCOMPARE(columns.count(), 4);
    QCOMPARE(columns.at(2).first, 8);
    QCOMPARE(columns.at(3).first, form.layout.count());
    QCOMPARE(columns.at(3).x, 300);
    form.arrange(450);
    QCOMPARE(form.rect(8).topLeft(), QPoint(200, 0));
}

void tst_FloatGroupLayout::exactWidthOverflows()
{
    Form form;
    form.add(NewRow, 88, 10);
    form.add(Head, 20, 10);
    form.add(NewRow, 88, 10);
    QCOMPARE(Probe::columns(form.layout, 200).count(), 1);
    QCOMPARE(Probe::columns(form.layout, 201).count(), 2);
}

void tst_FloatGroupLayout::wrap()
{
    Form form;
    form.add(NewRow, 500, 10);
    form.add(0, 60, 12);
    form.add(0, 30, 10);
    form.arrange(100);
    QCOMPARE(form.rect(0), QRect(0, 0, 500, 10));
    QCOMPARE(form.rect(1), QRect(0, 14, 60, 12));
    // Widened to the field width, so it wraps as well.
    QCOMPARE(form.rect(2), QRect(0, 30, 60, 10));
}

void tst_FloatGroupLayout::wrapInSecondColumnGoesToTheLeftEdge()
{
    Form form;
    form.add(NewRow, 50, 10);
    form.add(Head, 20, 10);
    form.add(Label, 20, 10);
    form.add(0, 80, 10);
    form.add(0, 10, 10); // widened to 80 though counted as 10
    form.arrange(190);
    QCOMPARE(form.rect(3).left(), 62 + 24);
    QCOMPARE(form.rect(4), QRect(0, 28, 80, 10));
}

void tst_FloatGroupLayout::labelHeight()
{
    Form form;
    form.add(Label, 20, 10);
    form.add(0, 30, 12);
    form.add(Label, 20, 10);
    form.add(0, 30, 100);
    form.add(Label, 20, 10);
    form.arrange(1000);
    QCOMPARE(form.rect(0), QRect(0, 0, 20, 16));
    QCOMPARE(form.rect(2), QRect(0, 16, 20, 24));
    QCOMPARE(form.rect(4), QRect(0, 120, 20, 14));
}

void tst_FloatGroupLayout::hiddenRowTakesNoSpace()
{
    Form form;
    form.add(Label, 20, 10);
    form.add(0, 30, 10);
    form.add(Label, 0, 0);
    form.add(0, 0, 0);
    form.add(Label, 20, 10);
    QCOMPARE(form.arrange(1000), QSize(53, 24));
    QCOMPARE(form.rect(3).width(), 30);
    QCOMPARE(form.rect(4).top(), 14);
}

void tst_FloatGroupLayout::specialKeepsItsWidth()
{
    Form form;
    form.add(Label, 20, 10);
    form.add(0, 50, 10);
    form.add(Label, 20, 10);
    form.add(Special, 10, 10);
    form.add(Label, 20, 10);
    form.add(Special, 90, 10);
    form.arrange(1000);
    QCOMPARE(form.rect(1).width(), 50);
    QCOMPARE(form.rect(3).width(), 10);
    QCOMPARE(form.rect(5).width(), 90);
}

void tst_FloatGroupLayout::headIsCutToTheWidth()
{
    Form form;
    form.add(Head, 300, 10);
    form.add(NewRow, 150, 10);
    form.add(Head, 300, 10);
    form.arrange(100);
    QCOMPARE(form.rect(0).width(), 100);
    QCOMPARE(form.rect(2).width(), 149);
}

void tst_FloatGroupLayout::areaLimitsTheWidth()
{
    QScrollArea area;
    area.resize(120, 50);
    area.setWidget(new QWidget);
    FloatGroupLayout layout(&area);
    for (int i = 0; i < 3; ++i)
        layout.addItem(new FakeItem(QSize(50, 10)));
    layout.setGeometry(QRect(0, 0, 1000, 50));
    QCOMPARE(layout.itemAt(2)->geometry().topLeft(), QPoint(0, 14));
    QCOMPARE(area.widget()->minimumSize(), layout.sizeHint());
}

void tst_FloatGroupLayout::setGeometryPlacesAll()
{
    Form form;
    FakeItem* first = form.add(NewRow, 30, 10);
    FakeItem* second = form.add(0, 30, 10);
    form.layout.setContentsMargins(9, 9, 9, 9);
    form.layout.setGeometry(QRect(40, 50, 300, 200));
    QCOMPARE(first->geometry(), QRect(0, 0, 30, 10));
    QCOMPARE(second->geometry(), QRect(34, 0, 30, 10));
    QCOMPARE(form.layout.geometry(), QRect(40, 50, 300, 200));
}

void tst_FloatGroupLayout::setGeometryStopsWhenInvalidated()
{
    class Disturber : public FakeItem
    {
    public:
        Disturber(QLayout& layout)
            : FakeItem(QSize(10, 10))
            , m_layout(layout)
        {
        }
        void setGeometry(const QRect& rect) override
        {
            FakeItem::setGeometry(rect);
            m_layout.invalidate();
        }

    private:
        QLayout& m_layout;
    };
    Form form;
    FakeItem* first = form.add(NewRow, 30, 10);
    form.layout.addItem(new Disturber(form.layout));
    FakeItem* last = form.add(0, 30, 10);
    form.layout.setGeometry(QRect(0, 0, 300, 200));
    QCOMPARE(first->placements, 1);
    QCOMPARE(last->placements, 0);
    // Nor is the caption of the disturber levelled, of which nothing is known any more.
    Form captioned;
    captioned.layout.addLabel(QStringLiteral("Caption"), "caption");
    captioned.layout.addItem(new Disturber(captioned.layout));
    last = captioned.add(0, 30, 10);
    captioned.layout.setGeometry(QRect(0, 0, 300, 200));
    QCOMPARE(last->placements, 0);
}

void tst_FloatGroupLayout::listWidgetsFollow()
{
    Form form;
    form.layout.addLabel(QStringLiteral("List"), "l");
    auto* container = new QWidget;
    auto* inner = new QVBoxLayout(container);
    inner->setContentsMargins(0, 0, 0, 0);
    auto* edit = new QLineEdit;
    inner->addWidget(edit);
    inner->addStretch();
    form.layout.addList();
    form.layout.addWidget(container);
    form.add(NewRow, 10, 10);
    form.add(0, 400, 10); // the field width of the column
    form.content.show();
    form.layout.setGeometry(QRect(0, 0, 1000, 100));
    QCOMPARE(container->width(), 400);
    QCOMPARE(edit->minimumWidth(), 400);
}

void tst_FloatGroupLayout::hugeHintsDoNotRunOver()
{
    Form form;
    for (int i = 0; i < 400; ++i)
        form.add(i % 3 ? 0 : NewRow, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QVERIFY(form.arrange(1000).height() > 0);
    QVERIFY(form.rect(399).isValid());
}

void tst_FloatGroupLayout::randomForms()
{
    const quint32 seed = 20240611;
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 4000; ++round) {
        QVector<ReferenceItem> items(random.bounded(1, 60));
        Form form;
        for (ReferenceItem& item : items) {
            item = randomItem(random);
            form.add(item.flags, item.hint.width(), item.hint.height(), item.topMargin);
        }
        const int horizontal = random.bounded(8);
        const int vertical = random.bounded(8);
        form.layout.setHorizontalSpacing(horizontal);
        form.layout.setVerticalSpacing(vertical);
        const int width = random.bounded(1, 1500);
        const int columns = random.bounded(3) ? 0 : random.bounded(1, 6);
        const ReferenceResult expected = referenceArrangement(items, width, columns, horizontal, vertical);
        const QByteArray place = QByteArray::number(round);
        QVERIFY2(form.arrange(width, columns) == expected.size, place.constData());
        QVERIFY2(Probe::hints(form.layout) == expected.rectangles, place.constData());
    }
}

void tst_FloatGroupLayout::arrangementIsLinear()
{
    // A walk through all rows for each of them would outlast any test run.
    constexpr int rows = 400000;
    Form form;
    for (int i = 0; i < rows; ++i) {
        if (i % 20 == 0)
            form.add(Head, 80, 18);
        form.add(Label, 60 + i % 7, 20);
        form.add(0, 100 + i % 11, 22);
    }
    const QSize narrow = form.arrange(100);
    QVERIFY(form.arrange(700).height() < narrow.height());
}

QTEST_MAIN(tst_FloatGroupLayout)
#include "tst_floatgrouplayout.moc"
