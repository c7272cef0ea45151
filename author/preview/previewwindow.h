#ifndef ZORVA_AUTHOR_PREVIEWWINDOW_H
#define ZORVA_AUTHOR_PREVIEWWINDOW_H

#include "banner.h"
#include "carryover.h"
#include "devicesimulation.h"
#include "lookbar.h"
#include "previewform.h"

#include <author/server/diagnoser.h>
#include <shell/filewatch.h>

#include <QMainWindow>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

class QAction;
class QDockWidget;
class QMenu;
class QScrollArea;

namespace Orvane {
namespace Author {

class ParametersPane;
class PlaceList;
class ValuesPane;

/** What a preview begins with. */
struct PreviewOptions
{
    QString file;    // the description
    QString overlay; // tried from the beginning; empty: none
    PreviewLook look;
    bool isLookGiven = false;       // by the user: style, colours and language are to be put on
    QStringList translationFolders; // beside the description's own
    QString scriptProgram;          // runs scripts for the problems; empty: they are only read
    QStringList scriptArguments;
    int longestScript = ScriptLog::longest; // milliseconds that scripts of the form may run at a time
};

/**
 * A form, live, beside what its author wants to know of it. Watches the file of the description
 * and takes up each state of it that can be read; what was entered is carried over. One
 * that cannot be read leaves the last good one where it is.
 */
class PreviewWindow : public QMainWindow
{
    Q_OBJECT

public:
    /** Shows a place of a file; gives why that cannot be, empty if it can. */
    using Editor = std::function<QString(const QString& file, int line, int column)>;

    explicit PreviewWindow(const PreviewOptions& options, QWidget* parent = nullptr);
    ~PreviewWindow() override;

    /** What is shown; null if there was never a form. It goes at the next reload. */
    PreviewForm* form() const { return m_form.get(); }
    /** What the window says of the description above the form; empty if all is well. */
    QString reason() const { return m_banner->text(); }
    /**
     * Reads description and overlay again, whether or not they have changed; as soon as an
     * open list, a dialog or a running script allows it.
     */
    void reload();
    /** In place of the user's editor. */
    void setEditor(Editor editor) { m_editor = std::move(editor); }
    /** The picture of all rows, at the width at which they are shown. Null without a form. */
    QImage picture() const;

Q_SIGNALS:
    /** A new state of the form is up. */
    void reloaded();
    /** The description cannot be taken up; the last good form stays. */
    void heldBack(const QString& reason);
    /** The problems of the latest description are shown. */
    void problemsShown();

private:
    /** A description as it is on the disk now, and what is wrong with it. */
    struct Reading
    {
        QByteArray stored;
        QString problem; // why it is not to be taken up; empty if it is
        int line = 0;    // where the problem is; 0: nowhere in particular
        int column = 1;
    };

    QDockWidget* addPane(const QString& title, QWidget* content, Qt::DockWidgetArea area);
    void makePanes();
    void makeMenus();
    void makePaneKeys(QMenu* menu);
    Reading read() const;
    QByteArray readOverlay();
    void takeUp(const Reading& reading, bool force);
    bool mustWait() const;
    void build(std::unique_ptr<PreviewForm> fresh, const QByteArray& stored);
    void rebuild();
    std::unique_ptr<PreviewForm> makeForm(const QByteArray& stored) const;
    void place(QWidget* window);
    void listenTo(PreviewForm& form);
    void showAside(const QVector<KeptAside>& aside);
    void holdBack(const Reading& reading);
    void showForced();
    void applyFormLook();
    void applyProgramLook();
    void showProblems(const CheckedFile& checked);
    void showOverlay();
    void showValues();
    void sayOfScript(const QString& text, int line);
    int fileLine(int scriptLine) const;
    void takeApplied();
    void edit(int line, int column);
    void editFile(const QString& file, int line, int column);
    void savePicture();
    void chooseOverlay();
    void setOverlay(const QString& file);
    void nextPane(int step);
    bool eventFilter(QObject* watched, QEvent* event) override;

    PreviewOptions m_options;
    Editor m_editor;
    std::unique_ptr<FileWatch> m_watch;
    std::unique_ptr<Diagnoser> m_diagnoser;
    int m_lastCheck = 0;
    QByteArray m_stored;       // the description of the form that is shown
    QByteArray m_overlayBytes; // that lies over it
    Reading m_heldBack;        // while the banner speaks of it
    std::unique_ptr<PreviewForm> m_form;
    Carryover m_carryover;
    DeviceSimulation m_device; // goes before the form
    QTimer m_whenFree;         // a menu or dialog of the form has to end first
    QTimer m_showSoon;         // gathers changes of rows
    bool m_isBuilding = false; // events may come from within a script

    Banner* m_banner; // owned by the window, like all that follows
    LookBar* m_lookBar;
    QScrollArea* m_stage;
    PlaceList* m_problems;
    PlaceList* m_script;
    PlaceList* m_overlayList;
    PlaceList* m_aside;
    ValuesPane* m_values;
    ParametersPane* m_parameters;
    QList<QDockWidget*> m_panes;
    QAction* m_goThere;
    QAction* m_showAnyway;
    QAction* m_useOverlay;
};

} // namespace Author
} // namespace Orvane

#endif
