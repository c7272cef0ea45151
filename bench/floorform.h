#ifndef ZORVA_BENCH_FLOORFORM_H
#define ZORVA_BENCH_FLOORFORM_H

#include "formgenerator.h"

#include <QHash>
#include <QObject>
#include <QScriptEngine>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

class QXmlStreamReader;
class QXmlStreamWriter;

struct FloorEnumEntry
{
    QString displayName;
    QString identifier;
    QString value;
};
using FloorEnum = QVector<FloorEnumEntry>;

/// A value as bare as it can be: a name, a content and who hears of it.
class FloorValue
{
public:
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void noticed(FloorValue* value) = 0;
    };
    struct Item
    {
        QString name;
        double value;
        long key;
    };
    enum Type { Flag, Text, Number, Choice };

    FloorValue(Type valueType, const QString& valueName)
        : type(valueType)
        , name(valueName)
    {
    }

    void addListener(Listener* listener) { listeners.push_back(listener); }
    void setText(const QString& text, const Listener* from);
    void setNumber(double number, const Listener* from);
    void select(int index, const Listener* from);
    QString shownText() const;
    /// The item for the entry that holds `wanted`; the first one if there is none.
    int takeItems(const FloorEnum& entries, const QString& wanted);

    const Type type;
    const QString name;
    double number = 0.0;
    double minimum = -1e308;
    double maximum = 1e308;
    double step = 1.0;
    QString text;
    int current = -1;
    std::vector<Item> items;

private:
    void tell(const Listener* from);

    std::vector<Listener*> listeners;
};

/// One row: an object with dynamic properties, which hears of their changes.
class FloorRow : public QObject, public FloorValue::Listener
{
public:
    FloorRow(const QString& rowName, const QString& rowClass);

    bool event(QEvent* event) override;
    void noticed(FloorValue* value) override;

    void createValue(const QHash<QString, FloorEnum>& enums, QHash<QString, FloorValue*>& tree);
    void write(QXmlStreamWriter& writer) const;
    void readText(const QString& text);

    QString className;
    QString path;
    QString tag;
    RowKind kind;
    bool hasParameter = false;
    std::unique_ptr<FloorValue> value;
    const FloorEnum* enumeration = nullptr; // not owned
    QString lastText;

private:
    const char* contentName() const;
    double numberProperty(const char* name, double fallback) const;
    void configure();
    bool takeConverted(const char* name, const char* marker, double& number, double factor, double offset);
    void createChoice(const FloorEnum& entries);
    void contentChanged(const QVariant& content);
};

/// A group of the parameter XML or a leaf in it.
struct FloorElement
{
    QString tag;
    FloorRow* row = nullptr; // not owned; null for a group
    QString text;            // what the plain write floor puts out
    std::vector<std::unique_ptr<FloorElement>> children;
    QHash<QString, FloorElement*> byTag;
};

/// The least that has to happen for a live form, one step at a time: the floors
/// that the library is measured against.
class FloorForm
{
public:
    FloorForm();

    /// One pass of the reader, an object a row, its properties, its name in the script.
    void parse(const QString& description);
    /// Tags into groups; part of the preparation of reading and writing.
    void buildElements();
    /// Typed values by the property protocol, hashed by path, one notice each.
    void createValues();
    /// Parameter XML from texts that lie ready.
    QString writeReady() const;
    /// Parameter XML from the properties of the rows.
    QString writeProperties() const;
    /// Dispatch by tag and read the texts, nothing more.
    void readTexts(const QString& parameters);
    /// The same, and each text becomes property and value of its row.
    void readProperties(const QString& parameters);
    /// Changes a property of each row named in an overlay, and refills the enumerations.
    void applyOverlay(const QString& overlay);

    const std::vector<std::unique_ptr<FloorRow>>& rows() const { return m_rows; }
    FloorValue* value(const QString& path) const { return m_tree.value(path); }
    /// Fills an enumeration and the values of the rows that use it anew.
    void refill(const QString& enumName, const QStringList& names);
    const FloorEnum enumeration(const QString& enumName) const { return m_enums.value(enumName); }

private:
    void parseEnum(QXmlStreamReader& reader);
    void parseRow(QXmlStreamReader& reader, bool isNew);
    template <typename Leaf>
    QString write(Leaf&& leaf) const;
    template <typename Leaf>
    void read(const QString& parameters, Leaf&& leaf);

    std::unique_ptr<QScriptEngine> m_engine;
    std::vector<std::unique_ptr<FloorRow>> m_rows;
    QHash<QString, FloorRow*> m_rowByName;
    QHash<QString, FloorEnum> m_enums;
    QHash<QString, FloorValue*> m_tree;
    FloorElement m_root;
    QString m_script;
};

#endif
