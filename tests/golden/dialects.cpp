#include "tests/golden/Dialect.h"

std::vector<const Dialect*> AllDialects() {
    return {&AccessDialect(), &MSSQLDialect(), &MSSQLFromDialect(), &MySQLDialect(), &OracleDialect()};
}
