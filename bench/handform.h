#ifndef ZORVA_BENCH_HANDFORM_H
#define ZORVA_BENCH_HANDFORM_H

#include "formgenerator.h"

#include <QWidget>

#include <memory>
#include <vector>

class FloatGroupLayout;
class QFormLayout;

/// Holds arrangement and painting of a content widget the way the shortest code
/// can: what a bulk change has to cost at least.
class FloorGuard
{
public:
    explicit FloorGuard(QWidget* content);
    ~FloorGuard();
    FloorGuard(const FloorGuard&) = delete;
    FloorGuard& operator=(const FloorGuard&) = delete;

private:
    QWidget* m_content;
};

/// The load as a form written by hand: labels and stock controls, nothing behind
/// them.
class HandForm
{
public:
    /// Which layout holds the rows.
    enum Layout { FormLayout, FloatLayout };

    HandForm(const FormGenerator& form, Layout layout);
    ~HandForm();
    HandForm(const HandForm&) = delete;
    HandForm& operator=(const HandForm&) = delete;

    QWidget* window() const { return m_window.get(); }
    QWidget* content() const { return m_content; }

    /// Shows or hides the rows below a headline, or below all of them.
    void setGroupVisible(int headline, bool visible);
    void setGroupsVisible(bool visible);
    void setControlsEnabled(bool enabled);
    /// Gives every control the values or the new values of the load.
    void writeControls(bool changed);
    /// Gives the first text another content, as one edit does.
    void writeText(const QString& text);
    /// Fills the first combo box anew.
    void refillChoice(const QStringList& names);

private:
    struct Row
    {
        const RowPlan* plan; // not owned: the generator's
        QWidget* label;      // owned by the content, like the control
        QWidget* control;
    };

    QWidget* createControl(const RowPlan& plan);
    QWidget* createSpin(const RowPlan& plan);
    void add(const RowPlan& plan);
    void writeControl(const Row& row, const QString& value);
    /// Null if there is none.
    QWidget* firstControl(RowKind kind) const;

    bool m_limits;
    std::unique_ptr<QWidget> m_window;
    QWidget* m_content = nullptr; // owned by the window
    QFormLayout* m_form = nullptr;
    FloatGroupLayout* m_float = nullptr;
    std::vector<Row> m_rows;
};

#endif
