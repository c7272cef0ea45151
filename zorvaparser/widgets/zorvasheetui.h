#ifndef ZORVASHEETUI_H
#define ZORVASHEETUI_H

#include <zorvaparser/zorvadelegate.h>

#include <layout/floatgrouplayout.h>

#include <QCheckBox>
#include <QPushButton>
#include <QTimer>

class FloatScrollArea;
class QAction;
class QPoint;

namespace Orvane {

/**
 * The sheet's own delegate: scroll area and layout of the rows, the apply bar
 * below them, the auto-apply timer and the menu of text sizes. Decides when the
 * sheet's changes are announced.
 */
class ZorvaSheetUi : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaSheetUi(ZorvaSheet* sheet);
    ~ZorvaSheetUi() override;

    using ZorvaDelegate::CreateGUI;
    /** Builds the surface once; a later call does nothing. */
    void CreateGUI(bool createApplyUi);
    /** Null before CreateGUI() and once the host has deleted it. */
    QWidget* GetGUI() { return sheetWidget; }
    FloatGroupLayout* GetLayout() { return layout; }
    /** Starts the root element of parameter XML with its attributes. */
    void WriteRootStart(QXmlStreamWriter& writer);
    bool isAutoApplyEnabled() const { return autoApplyEnabled; }

    void ParseProperties(QXmlStreamReader& reader, bool custom) override;
    void EnableInput(bool enable, bool restricted) override;

    /** Hears of another language where the rows lie. */
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void si_parametersModified();
    void si_translationsChanged();
    void si_chooseFontSize(int size);

public Q_SLOTS:
    void applyNow();
    void emitParametersXml();
    void emitParametersXml(bool onlyModified);
    void killAutoApplyTimer();
    void setApplyUiVisible(bool visible);
    void setAutoApplyEnabled(bool enable);
    void setAutoApplyTimeout(int timeout);
    void setEmitOnlyModifiedParameters(bool onlyModified);
    void setErrorHighlightingXmlRootTag(QString rootTag);
    void setQMBaseName(QString qmBaseName);
    void setTranslationsSubDir(QString subDir);
    /** Only while the top widget exists. */
    void setVisible(bool visible);
    void setModified(bool autoApply) override;
    void resetModified() override;
    /** Only while the top widget exists. */
    void showContextMenu(QPoint pt);

private Q_SLOTS:
    void chooseFont(QAction* pAction);

public:
    Q_INVOKABLE void resetModifiedParameter(QObject* sheetObject);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;
    void Retranslate() override;

private:
    FloatScrollArea* CreateScrollArea(QWidget* parent, const QString& contentName);
    FloatScrollArea* CreateWithApplyBar();
    FloatScrollArea* CreateBare();
    void CreateApplyBar();
    void CreateTimer();

    // Owned by the Qt widget tree; the window may die before its form.
    QPointer<QWidget> sheetWidget;
    QPointer<FloatGroupLayout> layout;
    QPointer<QWidget> applyButtonBox;
    QPointer<QPushButton> applyButton;
    QPointer<QCheckBox> autoApply;
    QTimer* autoApplyTimer; // owned
    bool autoApplyEnabled;
    QStringList attributeProperties;
};

} // namespace Orvane

#endif
