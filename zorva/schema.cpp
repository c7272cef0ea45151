#include "subcommand.h"
#include "terminal.h"

#include <author/files/wholefile.h>
#include <author/kinds/kindtable.h>
#include <author/schema/relaxng.h>

namespace {

int write(const QByteArray& schema, const QString& path)
{
    const QString problem = Orvane::Author::writeWhole(path, schema);
    return problem.isEmpty() ? Clean : fail(QStringLiteral("schema: cannot write %1: %2").arg(path, problem));
}

int run(const QStringList& arguments)
{
    const QByteArray schema = Orvane::Author::relaxNgSchema(Orvane::Author::KindTable::instance());
    if (arguments.isEmpty())
        return printBytes(schema);
    if (arguments.size() == 2 && arguments.first() == QLatin1String("-o"))
        return write(schema, arguments.at(1));
    return fail(QStringLiteral("schema: wrong arguments; see zorva schema --help"));
}

} // namespace

const Subcommand schemaCommand = {
    "schema",
    "writes the RELAX NG schema of the form language",
    "Usage: zorva schema [-o FILE]\n"
    "Writes the form language as a RELAX NG schema, for editors and for validators such\n"
    "as jing and xmllint --relaxng. It is installed as share/zorvaparser/zorva.rng, too.\n\n"
    "Options:\n"
    "  -o FILE  write to FILE instead of the standard output\n",
    Subcommand::Core,
    run,
};
