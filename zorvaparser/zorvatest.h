#ifndef ZORVA_ZORVATEST_H
#define ZORVA_ZORVATEST_H

#include <zorvaparser/formshell_p.h>
#include <zorvaparser/loadinterface.h>
#include <zorvaparser/zorvaformular.h>

#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QMainWindow>
#include <QObject>
#include <QPointer>

class QTabWidget;

namespace Orvane {

/** The test shell's window; closing it ends the application. */
class ZorvaTestMain : public QMainWindow
{
public:
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
};

/**
 * The test shell: shows the form, or the tabs of forms, that the application's
 * arguments name (the fifth is the path, the sixth may be "debug"), so that a
 * description can be tried without a device. A single form keeps its parameters
 * in "ZorvaTest_test.xml" in the working directory.
 */
class ZorvaTest : public QObject, public IDllInstance, public FormShell
{
    Q_OBJECT

public:
    explicit ZorvaTest(const QString& name);
    /** Leaves the window and the forms, which go with the process. */
    ~ZorvaTest() override;

    /**
     * Shows what the arguments name, once; always true. A description that
     * cannot be read is said in the debug log and leaves the window hidden; a
     * component list shows its window in any case.
     */
    bool Start() override;

    void SetOptions(const FormShellOptions& newOptions) override;
    bool Reload() override;

    using ShownForm = QExplicitlySharedDataPointer<ZorvaFormular>;
    /** Every form shown in this process: forms and windows outlive the instance that made them. */
    static QList<ShownForm>& ShownForms();
    /** The windows of those forms; null where one has been deleted. */
    static QList<QPointer<ZorvaTestMain>>& ShellWindows();

private Q_SLOTS:
    /** Stores all parameters of the single form; a failure leaves the stored ones as they were. */
    void sl_parametersModified();

private:
    void LoadZorva(const QString& path, const QString& option);
    void ShowForm(const ShownForm& form);
    void LetFormGo();
    QString ParameterFilePath() const;
    void ReadStoredParameters();
    void TellForeignParameters(const QString& xml) const;
    void LoadComponentList(const QString& path);
    static void AddTab(QTabWidget* tabs, const QString& title, const QString& description, int& count);

    QPointer<ZorvaFormular> formular;   // the single form; null while there is none
    QPointer<ZorvaTestMain> mainWindow; // never deleted here
    QString formPath;
    FormShellOptions options;
};

} // namespace Orvane

#endif
