#ifndef ZORVA_COMPOUNDTRANSLATOR_P_H
#define ZORVA_COMPOUNDTRANSLATOR_P_H

#include <QHash>
#include <QTranslator>
#include <QVector>

#include <memory>

/**
 * Many .qm files as one translator, the last one added asked first. Qt asks each
 * translator that is installed for each text, and tells every widget of each that
 * comes or goes; here a text costs only the files that have one like it.
 */
class CompoundTranslator : public QTranslator
{
public:
    using Part = std::shared_ptr<QTranslator>;

    /** @p part has been loaded from a file. */
    void Add(const Part& part);
    /** Does nothing if @p part, which may be null, is not there. */
    void Remove(const Part& part);

    bool isEmpty() const override { return m_places.isEmpty(); }
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;

private:
    using Places = QVector<int>; // ascending

    void enter(int place);
    void closeGaps();

    QVector<Part> m_parts; // in the order in which they were added; null where one has gone
    QHash<const QTranslator*, int> m_places;
    QHash<quint32, Places> m_placesOfHash; // of a text: who has one with that hash
    Places m_alwaysAsked;                  // whose file says nothing of its hashes
};

#endif
