// A .cpg file beside a table. An input is the .cpg behind its length, and the rest the .dbf.
#include "FuzzTarget.h"
#include "InputFolder.h"
#include "InputParts.h"
#include "core/spatial/Recordset.h"
#include "core/text/TextEncoding.h"

#include <cstdlib>

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    WriteInput("input.cpg", parts.TakePart());
    const std::string path = WriteInput("input.dbf", parts.Rest());
    RunOnInput([&] {
        Recordset table(path);
        for (int column = 0; column < table.FieldCount(); ++column)
            if (ToUtf8(table.Fields(column).Name()) != table.Fields(column).Name()) std::abort();
        table.GetString();
    });
    return 0;
}
