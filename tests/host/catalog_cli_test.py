"""qzsql catalog as a user meets it. QZSQL is the program's path."""

import json
import os
import random
import resource
import shutil
import signal
import sqlite3
import subprocess
import sys
import time
import unittest

from cli_test import DONE, NOT_CLEAN, QZSQL, UNREADABLE, WRONG_USAGE, CommandLine

SCHEMA = """
CREATE TABLE Customers (ID INTEGER PRIMARY KEY, Name VARCHAR(50) COLLATE NOCASE, Rate DECIMAL(10,2));
CREATE TABLE Orders (ID INTEGER PRIMARY KEY, CustomerID INT REFERENCES Customers (ID), Due DATE, Amount MONEY);
CREATE INDEX byDue ON Orders (Due);
CREATE VIEW "Open Orders" AS SELECT Orders.ID FROM Orders WHERE Orders.Amount > 0;
"""


def without_overriding(arguments):
    """As root, so that permissions count nevertheless."""
    if os.geteuid() != 0:
        return arguments
    return ["setpriv", "--bounding-set=-dac_override,-dac_read_search", *arguments]


def content(path):
    with open(path, "rb") as file:
        return file.read()


class Catalog(CommandLine):
    def setUp(self):
        super().setUp()
        self.store = os.path.join(self.folder, "shop.qzc")
        self.database = os.path.join(self.folder, "shop.db")

    def catalog(self, command, *arguments, code=DONE, stdin=""):
        return self.expect(code, "catalog", command, *arguments, stdin=stdin)

    def shown(self, *objects):
        return json.loads(self.catalog("show", self.store, *objects, "-f", "json")[0])

    def make(self, schema=SCHEMA):
        """A store with a schema imported."""
        with sqlite3.connect(self.database) as connection:
            connection.executescript(schema)
        connection.close()
        self.catalog("init", self.store)
        return self.catalog("import", "--sqlite", self.database, self.store)

    def expect_untouched(self, code, *arguments, **options):
        """Returns what is said on standard error; the store stays as it is."""
        before = content(self.store)
        _, err = self.catalog(*arguments, code=code, **options)
        self.assertEqual(content(self.store), before)
        return err


class CatalogCommands(Catalog):
    def test_help_of_each_command_has_an_example(self):
        self.assertIn("Example:", self.results("catalog", "--help"))
        for command in ["init", "import", "add-query", "show", "set", "check", "filter"]:
            help_text = self.results("catalog", command, "--help")
            self.assertIn(f"Example:\n  qzsql catalog {command} ", help_text)
            self.assertIn("Exit code", help_text)

    def test_wrong_usage(self):
        self.make()
        for arguments in [
            [],
            ["nonsense"],
            ["init"],
            ["init", "x.qzc", "-d", "cobol"],
            ["import", self.store],
            ["add-query", self.store, "q", self.database],
            ["show", self.store, "-f", "xml"],
            ["set", self.store, "Orders", "CopyData"],
            ["filter", self.store, "Orders", "--sql", "a", "--remove"],
            ["filter", self.store, "Orders", "--sql", ""],
            ["filter", self.store, "Orders", "Amount"],
            ["filter", self.store, "Orders", "Amount", "="],
            ["filter", self.store, "Orders", "Amount", "=", "1", "and"],
            ["filter", self.store, "Orders", "Amount", "=", "1", "xor"],
            ["filter", self.store, "Orders", "Amount", "~", "1"],
            ["filter", self.store, "Orders", "Amount", "=", "many"],
        ]:
            out, err = self.expect(WRONG_USAGE, "catalog", *arguments)
            self.assertEqual(out, "", arguments)
            self.assertNotEqual(err, "", arguments)

    def test_a_command_that_is_missing_or_unknown(self):
        _, err = self.expect(WRONG_USAGE, "catalog")
        self.assertIn("a command is missing. The commands are init, import, add-query, show, set, check, filter;", err)
        _, err = self.expect(WRONG_USAGE, "catalog", "sho", self.store)
        self.expect(WRONG_USAGE, "catalog", "show", self.store, "--unknown")
        self.expect(WRONG_USAGE, "catalog", "unknown", "show", self.store)
        self.assertIn("unknown command 'sho'. Did you mean show? The commands are init,", err)

    def test_import_and_show(self):
        out, err = self.make()
        self.assertEqual((out, err), ("imported: tables 2, queries 1\n", ""))
        catalog = self.shown()
        self.assertEqual(catalog["dialect"], "access")
        self.assertEqual(catalog["options"]["MaxQuant"], 100)
        customers, orders = catalog["tables"]
        self.assertEqual([field["name"] for field in customers["fields"]], ["ID", "Name", "Rate"])
        rate = customers["fields"][2]["options"]
        self.assertEqual((rate["Type"], rate["Length"], rate["Scale"]), ("DECIMAL", 10, 2))
        self.assertEqual([(i["name"], i["primary"], i["unique"]) for i in orders["indexes"]],
                         [("PRIMARY", 1, 1), ("byDue", 0, 0)])
        (key,) = orders["foreignKeys"]
        self.assertEqual((key["name"], key["table"]), ("Orders_fk1", "Customers"))
        self.assertEqual(key["fields"], [{"field": "CustomerID", "referenced": "ID"}])
        (query,) = catalog["queries"]
        self.assertEqual(query["sql"], "SELECT Orders.ID FROM Orders WHERE Orders.Amount > 0")
        self.assertEqual(self.shown("orders"), orders)
        self.assertEqual(self.shown("Orders.due"), orders["fields"][2])
        self.assertEqual(self.shown("Open orders"), query)

    def test_show_as_text(self):
        self.make()
        out, _ = self.catalog("show", self.store)
        self.assertTrue(out.startswith("catalog: access, 2 tables, 1 query\noptions:\n  Selected 1\n"), out)
        self.assertIn("tables:\n  Customers: 3 fields, 1 index, 0 foreign keys\n", out)
        self.assertTrue(out.endswith("queries:\n  Open Orders: access\n"), out)
        self.catalog("filter", self.store, "Orders", "Amount", ">", "5")
        out, _ = self.catalog("show", self.store, "Orders")
        self.assertTrue(out.startswith("table Orders\noptions:\n  Selected 1\n  Name \"Orders\"\n"), out)
        self.assertTrue(
            out.endswith(
                "fields:\n  ID: INTEGER\n  CustomerID: INT\n  Due: DATE\n  Amount: MONEY\n"
                "indexes:\n  PRIMARY: primary (ID)\n  byDue: (Due)\n"
                "foreign keys:\n  Orders_fk1: (CustomerID) -> Customers(ID)\nfilter:\n  [Amount] > 5\n"
            ),
            out,
        )
        out, _ = self.catalog("show", self.store, "Open Orders")
        self.assertTrue(
            out.endswith("dialect: access\ntext:\nSELECT Orders.ID FROM Orders WHERE Orders.Amount > 0\n"), out)

    def test_show_each_kind_of_object(self):
        self.make("""
CREATE TABLE Parts (No INT, Region INT, Rate DECIMAL(10,2), Code CHAR(3) UNIQUE, PRIMARY KEY (No, Region));
CREATE TABLE Lines (No INT, Region INT, Note, FOREIGN KEY (No, Region) REFERENCES Parts (No, Region));
CREATE TABLE Boxes (Part INT REFERENCES Parts);
CREATE INDEX upper ON Parts (upper(Code), Rate);
""")
        for name, line in [
            ("Parts.Rate", "field Rate: DECIMAL(10,2)"),
            ("Parts.Code", "field Code: CHAR(3)"),
            ("Lines.Note", "field Note"),
            ("Parts.PRIMARY", "index PRIMARY: primary (No, Region)"),
            ("Parts.sqlite_autoindex_Parts_1", "index sqlite_autoindex_Parts_1: unique (Code)"),
            ("Parts.upper", "index upper: ((expression), Rate)"),
            ("Lines.Lines_fk1", "foreign key Lines_fk1: (No, Region) -> Parts(No, Region)"),
            ("Boxes.Boxes_fk1", "foreign key Boxes_fk1: (Part) -> Parts"),
        ]:
            out, _ = self.catalog("show", self.store, name)
            self.assertEqual(out.splitlines()[:2], [line, "options:"])
        self.assertEqual(self.shown("Parts.upper")["fields"], [{"field": ""}, {"field": "Rate"}])
        self.assertEqual(self.shown("Parts.upper")["unique"], 0)
        self.assertEqual(self.shown("Boxes.Boxes_fk1")["table"], "Parts")
        self.assertEqual(self.shown("Boxes.Boxes_fk1")["fields"], [{"field": "Part"}])

    def test_show_what_is_not_selected_or_filtered(self):
        self.make()
        self.catalog("set", self.store, "Orders.Due", "Selected", "0")
        self.catalog("set", self.store, "Customers", "Selected", "0")
        self.catalog("filter", self.store, "Orders", "Amount", ">", "5")
        self.assertEqual(self.catalog("show", self.store, "Orders.Due")[0].splitlines()[0],
                         "field Due: DATE, not selected")
        out, _ = self.catalog("show", self.store)
        self.assertIn("\n  Customers: 3 fields, 1 index, 0 foreign keys, not selected\n", out)
        self.assertIn("\n  Orders: 4 fields, 2 indexes, 1 foreign key, filtered\n", out)
        self.assertEqual(self.shown("Orders")["filter"], "[Amount] > 5")

    def test_names_that_are_not_utf8(self):
        self.make()
        run = self.run_bytes("catalog", "show", self.store, b"Order\xff")
        self.assertEqual((run.returncode, run.stdout), (WRONG_USAGE, b""))
        self.assertIn(b"an argument is not UTF-8", run.stderr)

    def test_a_second_import_of_the_same_is_refused(self):
        self.make()
        err = self.expect_untouched(WRONG_USAGE, "import", "--sqlite", self.database, self.store)
        self.assertIn("Customers", err)

    def test_what_can_not_be_imported(self):
        self.make()
        cut = self.file("cut.db", content(self.database)[:5000])
        pipe = os.path.join(self.folder, "pipe")
        os.mkfifo(pipe)
        for database, said in [(pipe, "a device or a pipe"), (cut, "damaged or cut off"), ("", "the name of the file is"),
                               (self.file("text", "SELECT a FROM t"), "no SQLite file"),
                               (self.folder + "/none", "No such file or directory")]:
            err = self.expect_untouched(UNREADABLE, "import", "--sqlite", database, self.store)
            self.assertIn(f"{database}: ", err)
            self.assertIn(said, err)

    def test_queries(self):
        self.make()
        text = "SELECT Orders.ID\r\nFROM Orders\r\n"
        path = self.file("q.sql", text)
        self.catalog("add-query", self.store, "q", path, "-d", "access")
        self.assertEqual(self.shown("q")["sql"], text)
        self.assertIn("--replace", self.expect_untouched(WRONG_USAGE, "add-query", self.store, "Q", path, "-d", "access"))
        self.assertIn("table", self.expect_untouched(WRONG_USAGE, "add-query", self.store, "orders", path, "-d", "access"))
        self.catalog("add-query", self.store, "Q", "-", "-d", "oracle", "--replace", stdin="SELECT 1 FROM dual")
        query = self.shown("q")
        self.assertEqual((query["name"], query["sql"], query["dialect"]), ("q", "SELECT 1 FROM dual", "oracle"))
        self.catalog("add-query", self.store, "wide", self.file("w.sql", text.encode("utf-16")), "-d", "mysql")
        self.assertEqual(self.shown("wide")["sql"], text)
        err = self.expect_untouched(UNREADABLE, "add-query", self.store, "n", self.folder + "/none", "-d", "access")
        self.assertIn("/none: No such file", err)
        err = self.expect_untouched(UNREADABLE, "add-query", self.store, "n", self.file("b", b"\xff"), "-d", "access")
        self.assertIn("byte 0 is not UTF-8", err)

    def test_set_tells_all_that_changes(self):
        self.make()
        self.assertEqual(self.catalog("set", self.store, "Orders", "copystructure", "0")[0],
                         "Orders CopyForeignKeys: 1 -> 0\nOrders CopyIndexes: 1 -> 0\nOrders CopyStructure: 1 -> 0\n")
        self.assertEqual(self.catalog("set", self.store, "Orders", "CopyStructure", "0")[0], "nothing changes\n")
        self.assertEqual(self.shown("Orders")["options"]["CopyStructure"], 0)
        self.assertEqual(self.catalog("set", self.store, ".", "SchemaName", "dbo")[0], '. SchemaName: "" -> "dbo"\n')
        self.assertEqual(self.catalog("set", self.store, "Customers", "Name", "Größe")[0],
                         'Customers Name: "Customers" -> "Größe"\n')
        self.assertEqual(self.shown("Customers")["name"], "Customers")

    def test_set_of_a_field_tells_its_table(self):
        self.make()
        self.assertEqual(self.catalog("set", self.store, "Customers.Rate", "LengthMapped", "12")[0],
                         "Customers.Rate LengthMapped: -1 -> 12\n")
        self.assertEqual(self.shown("Customers.Rate")["options"]["LengthMapped"], 12)

    def test_set_tells_what_stands_in_the_way(self):
        self.make()
        self.catalog("set", self.store, "Orders", "CopyStructure", "0")
        err = self.expect_untouched(NOT_CLEAN, "set", self.store, "Orders", "CopyIndexes", "1")
        self.assertEqual(err, "qzsql: CopyIndexes stays 0: refused, since CopyStructure of the table is 0\n")
        self.catalog("set", self.store, ".", "OverwriteDatabase", "1")
        self.expect_untouched(DONE, "set", self.store, "Orders", "OverwriteTable", "0")
        err = self.expect_untouched(NOT_CLEAN, "set", self.store, "Customers", "OverwriteTable", "0")
        self.assertEqual(err, "qzsql: OverwriteTable stays 1: refused, since OverwriteDatabase of the database is 1\n")

    def test_unknown_names_suggest_the_nearest(self):
        self.make()
        for arguments, said in [
            (["show", self.store, "Oders"], "Did you mean Orders?"),
            (["show", self.store, "Orders.Ammount"], "Did you mean Orders.Amount?"),
            (["show", self.store, "Open Order"], "Did you mean Open Orders?"),
            (["set", self.store, "Oders", "CopyData", "0"], "Did you mean Orders?"),
            (["set", self.store, "Orders", "CopyDat", "0"], "Did you mean CopyData?"),
            (["set", self.store, "Orders", "CopyData", "2"], "CopyData takes 0 or 1, not '2'"),
            (["filter", self.store, "Custmers"], "Did you mean Customers?"),
            (["filter", self.store, "Orders", "Amont", "=", "1"], "Did you mean Amount?"),
        ]:
            self.assertIn(said, self.expect_untouched(WRONG_USAGE, *arguments))

    def test_filters(self):
        self.make()
        self.assertEqual(self.catalog("filter", self.store, "Orders")[0], "Orders: no filter\n")
        for conditions, shown in [
            (["Amount", ">=", "100", "and", "Due", "<", "2020-01-31"], "[Amount] >= 100 AND [Due] < #2020-01-31#"),
            (["amount", "=", "-1.5e3", "or", "due", "is-null"], "[Amount] = -1.5e3 OR [Due] IS NULL"),
            (["--sql", "Amount > ID"], "Amount > ID"),
            (["Due", "like", "2020%", "and", "Amount", "like", "1%"], "[Due] LIKE '2020%' AND [Amount] LIKE '1%'"),
        ]:
            self.assertEqual(self.catalog("filter", self.store, "Orders", *conditions)[0], f"Orders: {shown}\n")
            self.assertEqual(self.catalog("filter", self.store, "orders")[0], f"Orders: {shown}\n")
        self.assertEqual(self.catalog("filter", self.store, "Customers", "Name", "like", "O'N%")[0],
                         "Customers: [Name] LIKE 'O''N%'\n")
        self.assertEqual(self.catalog("filter", self.store, "Orders", "--remove")[0], "Orders: no filter\n")
        self.assertNotIn("filter", self.shown("Orders"))

    def test_check(self):
        self.make()
        self.assertEqual(self.catalog("check", self.store), ("clean\n", ""))
        for name, text in [("q1", "SELECT a FROM q2"), ("q2", "SELECT a FROM [q1]"), ("q3", "SELECT a FROM Gone")]:
            self.catalog("add-query", self.store, name, "-", "-d", "access", stdin=text)
        before = content(self.store)
        out, err = self.catalog("check", self.store, code=NOT_CLEAN)
        self.assertEqual(out.splitlines()[0], "q1: reads itself in a ring of queries: q1 -> q2 -> q1")
        self.assertIn("q3: reads Gone, which is no table or query of the catalog\n", out)
        self.assertIn("q2: checked no further", err)
        self.assertEqual(content(self.store), before)


class CatalogStores(Catalog):
    def expect_refused(self, said, commands=None, wrap=lambda arguments: arguments, **options):
        """Every command tells the store's name and this, exits with 3, and leaves the file as it is."""
        before = content(self.store) if os.path.isfile(self.store) else None
        for command in commands or [
            ["show", self.store], ["check", self.store], ["set", self.store, "Orders", "CopyData", "0"],
            ["filter", self.store, "Orders", "--remove"], ["import", self.store, "--sqlite", self.database],
            ["add-query", self.store, "q", "-", "-d", "access"],
        ]:
            run = subprocess.run(wrap([QZSQL, "catalog", *command]), input=b"SELECT 1", capture_output=True,
                                 timeout=300, **options)
            err = run.stderr.decode()
            self.assertEqual((run.returncode, run.stdout), (UNREADABLE, b""), (command, err))
            self.assertIn(self.store, err)
            self.assertIn(said, err)
            if before is not None:
                self.assertEqual(content(self.store), before, command)

    def test_no_store_at_all(self):
        self.make()
        shutil.copy(self.database, self.store)
        self.expect_refused("no store of qzsql")
        self.file("shop.qzc", "SELECT a FROM t\n" * 100)
        self.expect_refused("no SQLite file")
        self.file("shop.qzc", "")
        self.expect_refused("no store of qzsql")
        os.remove(self.store)
        self.expect_refused("No such file or directory")
        self.assertFalse(os.path.exists(self.store))
        os.mkdir(self.store)
        self.expect_refused("can't be opened")
        os.rmdir(self.store)
        os.mkfifo(self.store)
        self.expect_refused("a device or a pipe; name a file")

    def test_cut_off(self):
        self.make()
        whole = content(self.store)
        for size in [len(whole) - 1, len(whole) // 2, 4096, 1000]:
            self.file("shop.qzc", whole[:size])
            self.expect_refused("damaged or cut off")

    def test_another_version(self):
        self.make()
        with sqlite3.connect(self.store) as connection:
            connection.execute("PRAGMA user_version = 9")
        connection.close()
        self.expect_refused("a store of version 9, while this qzsql reads version 1")

    def test_locked(self):
        self.make()
        # Of another process, since a lock ends when the process that holds it closes the file anywhere.
        hold = "import sqlite3, sys; c = sqlite3.connect(sys.argv[1], isolation_level=None); " \
               "c.execute('BEGIN EXCLUSIVE'); print(flush=True); sys.stdin.read()"
        with subprocess.Popen([sys.executable, "-c", hold, self.store], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as holder:
            holder.stdout.readline()
            self.expect_refused("locked by another process")
            holder.stdin.close()

    def test_read_only(self):
        self.make()
        os.chmod(self.store, 0o444)
        self.expect_refused("can't be written; make the file and its folder writable",
                            [["set", self.store, "Orders", "CopyData", "0"],
                             ["add-query", self.store, "q", "-", "-d", "access"]], wrap=without_overriding)
        subprocess.run(without_overriding([QZSQL, "catalog", "show", self.store]), check=True, capture_output=True)

    def test_full_disk(self):
        self.make()
        text = self.file("long.sql", "SELECT a FROM t WHERE b = '" + "x" * 300_000 + "'")
        size = os.path.getsize(self.store)
        for limit in [512, 2000, size // 2, size, size + 4096, size + 100_000]:
            self.expect_refused("can't be ", [["add-query", self.store, "q", text, "-d", "access"]],
                                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
            self.assertFalse(os.path.exists(self.store + "-journal"), limit)
        self.catalog("add-query", self.store, "q", text, "-d", "access")
        self.check_small_file_system()

    def check_small_file_system(self):
        """One that is full, where such a one can be made."""
        folder = os.path.join(self.folder, "small")
        os.mkdir(folder)
        mount = ["mount", "-t", "tmpfs", "-o", "size=512k", "tmpfs", folder]
        if not shutil.which(mount[0]) or subprocess.run(mount, capture_output=True, check=False).returncode != 0:
            return
        self.addCleanup(subprocess.run, ["umount", folder], check=True)
        self.store = os.path.join(folder, "shop.qzc")
        os.remove(self.database)
        self.make()
        text = self.file("longer.sql", "SELECT a FROM t WHERE b = '" + "x" * 700_000 + "'")
        self.expect_refused("can't be written: the disk is full; make room and try again",
                            [["add-query", self.store, "q", text, "-d", "access"]])
        self.assertFalse(os.path.exists(self.store + "-journal"))
        self.assertIn("Orders", self.catalog("show", self.store)[0])

    def test_a_store_that_can_not_be_made(self):
        self.catalog("init", self.store)
        self.assertIn("is there already", self.expect_untouched(UNREADABLE, "init", self.store))
        path = os.path.join(self.folder, "none", "x.qzc")
        self.assertIn(f"{path}: can't be made: No such file or directory", self.catalog("init", path, code=UNREADABLE)[1])
        path = os.path.join(self.folder, "full.qzc")
        run = subprocess.run([QZSQL, "catalog", "init", path], capture_output=True,
                             preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000)))
        self.assertEqual(run.returncode, UNREADABLE)
        self.assertFalse(os.path.exists(path))


class CatalogKilled(Catalog):
    """A save that is killed leaves the former state whole. While a transaction is under way its journal stands beside
    the store: where a kill leaves it behind, the kill came between begin and commit."""

    KILLS = 200
    TABLES = 150

    def save(self, value):
        return subprocess.Popen([QZSQL, "catalog", "set", self.store, ".", "Version", value],
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def kill_during(self, process, delay):
        journal = self.store + "-journal"
        while process.poll() is None and not os.path.exists(journal):
            time.sleep(0.0005)
        time.sleep(delay)
        process.send_signal(signal.SIGKILL)
        process.wait()
        return os.path.exists(journal)

    def remove_journal(self):
        """One that was needed is gone by now; one from before anything was written to the store may be left."""
        if os.path.exists(self.store + "-journal"):
            os.remove(self.store + "-journal")

    def test_200_kills(self):
        columns = ", ".join(f"c{i} VARCHAR({i})" for i in range(1, 21))
        self.make("".join(f"CREATE TABLE t{i} ({columns});" for i in range(self.TABLES)))
        began = time.monotonic()
        self.assertEqual(self.save("0").wait(), DONE)
        whole = time.monotonic() - began
        state = self.catalog("show", self.store, "-f", "json")[0]
        within = 0
        chance = random.Random(1)
        for number in range(1, self.KILLS + 1):
            before, after = state, json.loads(state)
            after["options"]["Version"] = str(number)
            wasWithin = self.kill_during(self.save(str(number)), chance.uniform(0, whole))
            state = self.catalog("show", self.store, "-f", "json")[0]
            self.remove_journal()
            if wasWithin:
                within += 1
                self.assertEqual(state, before, number)
            elif state != before:
                self.assertEqual(json.loads(state), after, number)
        print(f"{within} of {self.KILLS} kills came between begin and commit")
        self.assertGreaterEqual(within, 100)


if __name__ == "__main__":
    unittest.main()
