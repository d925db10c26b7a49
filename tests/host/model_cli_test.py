"""qzsql model and batch --emit model as a user meets them. QZSQL is the program's path."""

import json
import os
import unittest

from catalog_cli_test import Catalog
from cli_test import DONE, NOT_CLEAN, QUERY, UNREADABLE, WRONG_USAGE, CommandLine

MODEL = {
    "SQL": QUERY,
    "Select": [{"Class": "Field", "ItemKind": 5, "FieldName": "a"}],
    "From": [{"ItemKind": 4, "FuncName": "ALIAS", "TokenType": "ALIAS", "IsOperator": 1,
              "Children": [{"Class": "Field", "ItemKind": 5, "TableName": "t"}]}],
    "Aliases": {"table_name": {"SrcName": "TABLE_NAME", "Name": "TABLE_NAME", "Expression": {
        "ItemKind": 0, "Children": [{"Class": "Field", "ItemKind": 5, "TableName": "t"}]}}},
    "Sources": {"t": "t"},
    "Fields": {"a_0": {"FieldName": "a"}},
}


MS_SQL_QUERY = "SELECT TOP 5 x.a FROM t AS x WHERE x.a % 2 = 1"
MS_SQL_COLUMN = {"Class": "Field", "ItemKind": 5, "Text": "x", "FieldName": "a", "TableAlias": "x"}
MS_SQL_MODEL = {
    "SQL": MS_SQL_QUERY,
    "HasLimit": 1,
    "LimitSecond": 5,
    "Select": [{"ItemKind": 4, "FuncName": "ALIAS", "TokenType": "ALIAS", "IsOperator": 1, "Children": [MS_SQL_COLUMN]}],
    "From": [{"ItemKind": 4, "FuncName": "ALIAS", "TokenType": "ALIAS", "IsOperator": 1, "Children": [
        {"Class": "Field", "ItemKind": 5, "TableName": "t"},
        {"ItemKind": 4, "FuncName": "AS", "TokenType": "LITERAL_AS", "IsOperator": 1},
        {"ItemKind": 1, "Text": "x"}]}],
    "Where": {"ItemKind": 0, "Children": [{"ItemKind": 4, "FuncName": "=", "TokenType": "EQ", "IsOperator": 1, "Children": [
        MS_SQL_COLUMN, {"ItemKind": 1, "Text": "1"}]}]},
    "Aliases": {
        "table_namecolumn_name": {
            "SrcName": "TABLE_NAMECOLUMN_NAME", "Name": "TABLE_NAMECOLUMN_NAME", "Expression": {"ItemKind": 0}},
        "x": {"SrcName": "x", "Name": "x", "Expression": {"ItemKind": 0}}},
    "Sources": {"t": "t"},
    "Fields": {"xa_0": {"TableName": "x", "FieldName": "a"}},
}


def batch_of(*texts):
    return "".join(json.dumps({"id": number, "sql": sql}) + "\n" for number, sql in enumerate(texts))


class Models(CommandLine):
    def model(self, sql, dialect="access", **options):
        return json.loads(self.results("model", "-d", dialect, "-f", "json", "-e", sql, **options))

    def test_help_has_an_example(self):
        help_text = self.results("model", "--help")
        self.assertIn("qzsql model -d access", help_text)
        self.assertIn("--catalog STORE", help_text)

    def test_wrong_usage(self):
        for arguments in [
            ["model", "-d", "access"],
            ["model", "-e", QUERY],
            ["model", "-d", "mssql-from", "-e", "t"],
            ["model", "-d", "access", "-f", "sexpr", "-e", QUERY],
            ["batch", "-d", "access", "--emit", "tree", "--resolve"],
            ["batch", "-d", "access", "--emit", "check", "--catalog", "none"],
        ]:
            out, err = self.expect(WRONG_USAGE, *arguments)
            self.assertEqual(out, "", arguments)
            self.assertNotEqual(err, "", arguments)

    def test_json(self):
        self.assertEqual(self.model(QUERY), MODEL)
        path = self.file("q.sql", QUERY)
        out = self.results("model", "-d", "access", "-f", "json", "-e", QUERY, path)
        self.assertEqual([json.loads(line) for line in out.splitlines()], [MODEL, MODEL])

    def test_text(self):
        out = self.results("model", "-d", "access", "-e", "SELECT 1.5", "-e", "SELECT a ")
        self.assertEqual(
            out,
            '== -e 1\nQuery SQL="SELECT 1.5"\n  Select\n    ItemKind=1 Text="1."\n'
            '== -e 2\nQuery SQL="SELECT a"\n  Select\n    Class=Field ItemKind=5 FieldName="a"\n'
            '  Fields\n    "a_0" FieldName="a"\n',
        )

    def test_each_dialect_has_models(self):
        for dialect, kind in [("access", 2), ("mssql", 8), ("mysql", 1), ("oracle", 16)]:
            union = self.model("SELECT a FROM t UNION SELECT b FROM u", dialect)["Union"][0]["Query"]
            self.assertEqual((union["DataType"], union["QueryKind"]), (kind, kind), dialect)

    def test_mysql(self):
        sql = "SELECT T1.a, 1.5 FROM t AS T1 LIMIT 5"
        expected = {
            "SQL": sql,
            "Select": [{"Class": "Field", "ItemKind": 5, "TableName": "T1", "FieldName": "a"},
                       {"ItemKind": 1, "Text": "1."}],
            "From": [{"ItemKind": 4, "FuncName": "ALIAS", "TokenType": "ALIAS", "IsOperator": 1, "Children": [
                {"Class": "Field", "ItemKind": 5, "TableName": "t"}, {"ItemKind": 1, "Text": "T1"}]}],
            "Aliases": {"t1": {"SrcName": "T1", "Name": "T1", "Expression": {"ItemKind": 0}}},
            "Sources": {"T1": "T1", "t": "t"},
            "Fields": {"T1a_0": {"TableName": "T1", "FieldName": "a"}},
        }
        self.assertEqual(self.model(sql, "mysql"), expected)
        out = self.results("batch", "-d", "mysql", "--emit", "model", "-j", "3", stdin=batch_of(*[sql] * 50))
        self.assertEqual([json.loads(line)["model"] for line in out.splitlines()], [expected] * 50)
        self.assertEqual(self.model("SELECT 1 + `f`(2)", "mysql")["UserFunctions"], {"f": 1})
        self.assertEqual(self.expect(DONE, "model", "-d", "mysql", "-e", "SELECT t.* FROM t")[1],
                         "-e 1:1:9: not understood from here on: 4 tokens, 9 characters\n")

    def test_ms_sql(self):
        self.assertEqual(self.model(MS_SQL_QUERY, "mssql"), MS_SQL_MODEL)
        out = self.results("model", "-d", "mssql", "-e", MS_SQL_QUERY)
        self.assertTrue(out.startswith(f'Query SQL="{MS_SQL_QUERY}" HasLimit=1 LimitSecond=5\n  Select\n'))
        out = self.results("batch", "-d", "mssql", "--emit", "model", "-j", "2", stdin=batch_of(*[MS_SQL_QUERY] * 50))
        self.assertEqual([json.loads(line) for line in out.splitlines()],
                         [{"id": number, "status": "clean", "model": MS_SQL_MODEL} for number in range(50)])

    def test_ms_sql_tells_what_is_not_understood_and_no_white_space(self):
        for sql, told in [
            ("SELECT  a\r\nFROM\tt", ""),
            ("SELECT a x", "-e 1:1:10: not understood from here on: 1 token, 1 character\n"),
            ("SELECT a;", "-e 1:1:9: ';' makes no token and is left out\n"),
        ]:
            self.assertEqual(self.expect(DONE, "model", "-d", "mssql", "-e", sql)[1], told, sql)

    def test_oracle(self):
        sql = "SELECT t.a, b || 'x' y FROM tab t WHERE t.c(+) = 1 ORDER BY y DESC"
        expected = {
            "SQL": sql,
            "Select": [
                {"Class": "Field", "ItemKind": 5, "Text": "t", "FieldName": "a", "TableAlias": "t"},
                {"ItemKind": 4, "FuncName": "ALIAS", "TokenType": "ALIAS", "IsOperator": 1, "Children": [
                    {"Class": "Field", "ItemKind": 5, "FieldName": "b"}, {"ItemKind": 1, "Text": "y"}]}],
            "From": [{"ItemKind": 4, "FuncName": "ALIAS", "TokenType": "ALIAS", "IsOperator": 1, "Children": [
                {"Class": "Field", "ItemKind": 5, "TableName": "tab"}, {"ItemKind": 1, "Text": "t"}]}],
            "Where": {"ItemKind": 0, "Children": [{"ItemKind": 4, "FuncName": "=", "TokenType": "EQ", "IsOperator": 1, "Children": [
                {"Class": "Field", "ItemKind": 5, "Text": "t", "FieldName": "c", "TableAlias": "t"},
                {"ItemKind": 1, "Text": "1"}]}]},
            "OrderBy": [{"Class": "Field", "ItemKind": 5, "Text": "y", "Children": [{"ItemKind": 0, "Text": "DESC"}]}],
            "Aliases": {"t_table": {"SrcName": "t", "Name": "t", "AliasTable": "tab", "Expression": {"ItemKind": 0}},
                        "y": {"SrcName": "y", "Name": "y", "Expression": {"ItemKind": 0}}},
            "Sources": {"tab": "tab"},
            "Fields": {"a_0": {"FieldName": "a"}, "b_0": {"FieldName": "b"}, "c_0": {"FieldName": "c"},
                       "taba_0": {"TableName": "tab", "FieldName": "a"}, "tabc_0": {"TableName": "tab", "FieldName": "c"},
                       "y_0": {"FieldName": "y"}},
        }
        self.assertEqual(self.model(sql, "oracle"), expected)
        out = self.results("batch", "-d", "oracle", "--emit", "model", "-j", "2", stdin=batch_of(*[sql] * 50))
        self.assertEqual([json.loads(line) for line in out.splitlines()],
                         [{"id": number, "status": "clean", "model": expected} for number in range(50)])

    def test_oracle_tells_what_is_not_understood(self):
        for sql, told in [
            ("SELECT a FROM t LIMIT 5", "-e 1:1:23: not understood from here on: 1 token, 1 character\n"),
            ("SELECT :a", "-e 1:1:8: ':' makes no token and is left out\n"),
        ]:
            self.assertEqual(self.expect(DONE, "model", "-d", "oracle", "-e", sql)[1], told, sql)

    def test_oracles_long_concatenations_are_their_first_operand(self):
        path = self.file("bars.sql", "SELECT a" + " || b" * 50_000)
        out = self.results("model", "-d", "oracle", "-f", "json", path)
        self.assertEqual(json.loads(out)["Select"], [{"Class": "Field", "ItemKind": 5, "FieldName": "a"}])

    def test_the_librarys_console_lines_go_nowhere(self):
        self.assertEqual(self.model("SELECT [t.a] FROM t")["Select"][0]["TableName"], "[t]")
        self.assertNotIn("Output", self.results("batch", "-d", "access", "--emit", "model", stdin=batch_of("SELECT [t.a]")))

    def test_what_is_not_understood_is_told_by_its_place_in_the_text_read(self):
        for sql, told in [
            ("SELECT [t.a] x y", "-e 1:1:16: not understood from here on: 2 tokens, 3 characters\n"),
            ("SELECT a\r\nx", "-e 1:1:10: not understood from here on: 1 token, 1 character\n"),
            ("SELECT a\nx", "-e 1:2:1: not understood from here on: 1 token, 1 character\n"),
        ]:
            self.assertEqual(self.expect(DONE, "model", "-d", "access", "-e", sql)[1], told)
        _, err = self.expect(DONE, "model", "-d", "access", "-e", "")
        self.assertRegex(err, "^-e 1:1:1: the end of the text where SELECT_KEYWORD was expected\n$")

    def test_nesting_too_deep_is_told_with_its_place(self):
        sql = "SELECT " + "(" * 1_000_000
        for file_format in ["text", "json"]:
            out, err = self.expect(NOT_CLEAN, "model", "-d", "access", "-f", file_format, self.file("q", sql))
            self.assertRegex(err, r"q:1:\d+: .*nested too deep")
            self.assertIn("SELECT ((((", out)
        records = batch_of(sql, "SELECT 1").replace(" ", "", 1)
        out, _ = self.expect(NOT_CLEAN, "batch", "-d", "access", "--emit", "model", "-j", "2", stdin=records)
        first, second = (json.loads(line) for line in out.splitlines())
        self.assertEqual(first["status"], "error")
        self.assertEqual(second["model"]["Select"], [{"ItemKind": 1, "Text": "1"}])

    def test_long_chains_are_shown(self):
        conditions = 20_000
        path = self.file("and.sql", "SELECT a FROM t WHERE a = 1" + " AND a = 1" * (conditions - 1))
        for file_format in ["text", "json"]:
            out = self.results("model", "-d", "access", "-f", file_format, path)
            self.assertEqual(out.count("AND_KEYWORD"), conditions - 1)
        members = 5_000
        path = self.file("union.sql", "SELECT a FROM t" + " UNION SELECT a FROM t" * (members - 1))
        out = self.results("model", "-d", "access", path)
        self.assertEqual(out.count("Class=Union"), members - 1)

    @staticmethod
    def query_of_a_model_that_is_cut():
        fields = 1_500
        sql = "SELECT " + ", ".join(f"f{number}" for number in range(fields)) + " FROM t WHERE a IN (SELECT 1)"
        return sql + " AND a IN (SELECT 1)" * (fields - 1)

    def test_a_model_that_is_cut(self):
        path = self.file("wide.sql", self.query_of_a_model_that_is_cut())
        out, err = self.expect(NOT_CLEAN, "model", "-d", "access", path)
        self.assertTrue(out.splitlines()[0].endswith(" Cut=1"))
        self.assertEqual(err, f"qzsql: {path}: the model is cut: it would have more than two million objects\n")

    def test_what_is_shown_of_a_model_is_cut(self):
        sql = "SELECT a FROM t"
        for number in range(12):
            sql = f"SELECT b FROM u UNION SELECT a AS x{number} FROM ({sql}) AS d{number}"
        out, err = self.expect(DONE, "model", "-d", "access", "-e", sql)
        self.assertIn("Expression Cut=1", out)
        self.assertRegex(err, "^qzsql: -e 1: what is shown of the model is cut")
        self.assertLess(len(out), 100_000_000)

    def test_batch(self):
        out = self.results("batch", "-d", "access", "--emit", "model", "-j", "3", stdin=batch_of(*[QUERY] * 100))
        self.assertEqual([json.loads(line) for line in out.splitlines()],
                         [{"id": number, "status": "clean", "model": MODEL} for number in range(100)])


    def test_a_batch_goes_on_behind_a_model_that_is_cut(self):
        out, err = self.expect(NOT_CLEAN, "batch", "-d", "access", "--emit", "model",
                               stdin=batch_of(self.query_of_a_model_that_is_cut(), QUERY))
        cut, whole = out.splitlines()
        self.assertTrue(cut.startswith('{"id":0,'), cut[:100])
        self.assertIn('"Cut":1', cut)
        self.assertEqual(json.loads(whole), {"id": 1, "status": "clean", "model": MODEL})
        self.assertIn("the model is cut: it would have more than two million objects", err)


class CatalogModels(Catalog):
    def setUp(self):
        super().setUp()
        self.make()
        self.add("Open", "SELECT Orders.ID, Orders.Due AS Till, Stored(1) AS s FROM Orders")
        self.add("Late", "SELECT Open.ID FROM Open")

    def add(self, name, sql, dialect="access"):
        self.catalog("add-query", self.store, name, "-", "-d", dialect, stdin=sql)

    def models(self, *texts, arguments=(), resolve=True, told=""):
        """By the command and by batch, which must agree."""
        options = ["--catalog", self.store, *(["--resolve"] if resolve else []), *arguments]
        inputs = [argument for sql in texts for argument in ("-e", sql)]
        out, err = self.expect(DONE, "model", "-d", "access", "-f", "json", *options, *inputs)
        self.assertEqual(err, told)
        models = [json.loads(line) for line in out.splitlines()]
        lines = batch_of(*texts * 20)
        for threads in ["1", "4"]:
            out, err = self.expect(DONE, "batch", "-d", "access", "--emit", "model", "-j", threads, *options, stdin=lines)
            self.assertEqual(err, told)
            self.assertEqual([json.loads(line)["model"] for line in out.splitlines()], models * 20)
        return models

    def test_the_star_of_a_table_is_its_fields(self):
        (model,) = self.models("SELECT Orders.*, Open.* FROM Orders, Open", resolve=False)
        self.assertEqual([item["FieldName"] for item in model["Select"]], ["ID", "CustomerID", "Due", "Amount", "*"])
        self.assertEqual(model["Sources"], {"Orders": "table:Orders", "Open": "query:Open"})

    def test_user_functions_are_those_of_the_query(self):
        one, two = self.models("SELECT F(1), G(Open.ID) FROM Open", "SELECT a", resolve=False)
        self.assertEqual(one["UserFunctions"], {"F": 1, "G": 1})
        self.assertNotIn("UserFunctions", two)

    def test_resolution_over_tables(self):
        (model,) = self.models("SELECT Orders.Due, Name, Orders.* FROM Orders, Customers")
        self.assertEqual(model["Select"][:2], [
            {"Class": "Field", "ItemKind": 5, "TableName": "Orders", "FieldName": "Due", "ResolvedTable": "Orders",
             "ResolvedField": "Due"},
            {"Class": "Field", "ItemKind": 5, "FieldName": "Name", "ResolvedField": "Name"},
        ])
        self.assertEqual([item["ResolvedField"] for item in model["Select"][2:]], ["ID", "CustomerID", "Due", "Amount"])

    def test_resolution_over_stored_queries(self):
        alias, through, star = self.models("SELECT Open.Till FROM Open", "SELECT ID FROM Late", "SELECT Late.* FROM Late")
        self.assertEqual(alias["Select"], [
            {"Class": "Field", "ItemKind": 5, "HasCalculatedField": 1, "TableName": "Open", "FieldName": "Till",
             "ResolvedTable": "Open", "ResolvedField": "Till"}])
        self.assertEqual(through["Select"], [
            {"Class": "Field", "ItemKind": 5, "FieldName": "ID", "ResolvedTable": "Late", "ResolvedField": "ID"}])
        self.assertEqual(star["Select"], [
            {"Class": "Field", "ItemKind": 5, "Text": "*", "TableName": "Late", "FieldName": "*", "ResolvedTable": "Late"}])

    def test_a_query_of_ms_sql_looks_for_bare_names_in_no_other_query(self):
        for dialect, table in [("access", {"ResolvedTable": "Late"}), ("mssql", {})]:
            out = self.results("model", "-d", dialect, "-f", "json", "--catalog", self.store, "--resolve",
                               "-e", "SELECT ID FROM Late")
            self.assertIn('"ResolvedField":"ID"', out)
            self.assertEqual('"ResolvedTable":"Late"' in out.split('"From"')[0], bool(table), dialect)

    def test_sources_of_oracle_queries_are_tied_to_the_catalog_in_nested_queries_too(self):
        out = self.results("model", "-d", "oracle", "-f", "json", "--catalog", self.store, "-e",
                           "SELECT o.ID FROM Orders o WHERE o.ID IN (SELECT ID FROM Open) UNION SELECT ID FROM Customers, x")
        model = json.loads(out)
        sources = {"Orders": "table:Orders", "Open": "query:Open", "Customers": "table:Customers", "x": "x"}
        self.assertEqual(model["Sources"], sources)
        self.assertEqual(model["Union"][0]["Query"]["Sources"], sources)
        self.assertEqual([query["Sources"] for query in model["SubQueries"]],
                         [{"Open": "query:Open"}, {"Customers": "table:Customers", "x": "x"}])

    def test_resolution_without_a_catalog(self):
        model = json.loads(self.results("model", "-d", "access", "-f", "json", "--resolve", "-e", "SELECT a, t.b FROM t"))
        self.assertEqual(model["Select"], [{"Class": "Field", "ItemKind": 5, "FieldName": "a", "ResolvedField": "a"},
                                           {"Class": "Field", "ItemKind": 5, "TableName": "t", "FieldName": "b"}])

    def test_rings_are_named_and_nothing_hangs(self):
        self.add("A", "SELECT B.x FROM B")
        self.add("B", "SELECT A.x, y FROM A")
        self.add("Self", "SELECT Self.z FROM Self")
        told = "".join(
            f"qzsql: {self.store}: query {ring}\n"
            for ring in ["A: reads itself in a ring of queries: A -> B -> A",
                         "Self: reads itself in a ring of queries: Self -> Self"])
        model, _, _ = self.models("SELECT A.x, y FROM A", "SELECT B.* FROM B", "SELECT z FROM Self", told=told)
        self.assertEqual(model["Sources"], {"A": "query:A"})

    def test_long_chains_of_stored_queries(self):
        for number in range(1, 60):
            self.add(f"q{number}", f"SELECT q{number - 1}.ID FROM q{number - 1}" if number > 1 else "SELECT Orders.ID FROM Orders")
        (model,) = self.models("SELECT ID FROM q59")
        self.assertEqual(model["Select"][0]["ResolvedTable"], "q59")

    def test_stores_that_cannot_be_read(self):
        for path in [os.path.join(self.folder, "none"), self.file("text", "no store")]:
            for arguments in [["model", "-e", QUERY], ["batch", "--emit", "model"]]:
                out, err = self.expect(UNREADABLE, *arguments, "-d", "access", "--catalog", path, stdin=batch_of(QUERY))
                self.assertEqual(out, "")
                self.assertIn(path, err)


if __name__ == "__main__":
    unittest.main()
