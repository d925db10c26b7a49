"""The command line of qzsql as a user meets it. QZSQL is the program's path."""

import json
import os
import pty
import resource
import subprocess
import tempfile
import time
import unittest
import xml.etree.ElementTree as xml

QZSQL = os.environ["QZSQL"]
DONE, NOT_CLEAN, WRONG_USAGE, UNREADABLE, OUT_OF_MEMORY = range(5)
QUERY = "SELECT a FROM t"
SEXPR = (
    '(nil (SELECT_QUERY (SELECT_LIST (COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:"a"))) '
    '(FROM_DEF_ (ALIAS (TABLE_SPECIFICATION (TABLE_NAME IDENTIFICATOR:"t"))))) EOF)'
)


class CommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def file(self, name, content):
        path = os.path.join(self.folder, name)
        with open(path, "wb") as out:
            out.write(content if isinstance(content, bytes) else content.encode())
        return path

    def run_bytes(self, *arguments, stdin=b"", **options):
        return subprocess.run([QZSQL, *arguments], input=stdin, capture_output=True, timeout=300, **options)

    def expect(self, code, *arguments, stdin=""):
        """Runs to this exit code and returns the two streams as text."""
        run = self.run_bytes(*arguments, stdin=stdin if isinstance(stdin, bytes) else stdin.encode())
        self.assertEqual(run.returncode, code, (arguments, run.stdout[-2000:], run.stderr[-2000:]))
        return run.stdout.decode(), run.stderr.decode()

    def results(self, *arguments, code=DONE, stdin=""):
        """The results of a run that says nothing else."""
        out, err = self.expect(code, *arguments, stdin=stdin)
        self.assertEqual(err, "")
        return out


class Usage(CommandLine):
    def test_help_of_each_command_has_an_example(self):
        for command in ["tokens", "tree", "check", "batch"]:
            help_text = self.results(command, "--help")
            self.assertIn("Example:", help_text)
            self.assertIn(f"qzsql {command} -d access", help_text)
        self.assertIn("Example:", self.results("--help"))

    def test_a_command_that_is_missing_or_unknown(self):
        commands = "The commands are tokens, tree, check, model, batch, catalog; see: qzsql --help\n"
        self.assertEqual(self.expect(WRONG_USAGE)[1], f"qzsql: a command is missing. {commands}")
        for arguments in [["nonsense"], ["nonsense", "-d", "access"], ["nonsense", "tree", "-d", "access", "-e", QUERY]]:
            self.assertEqual(self.expect(WRONG_USAGE, *arguments)[1], f"qzsql: unknown command 'nonsense'. {commands}")
        self.assertIn("unknown command 'tre'. Did you mean tree?", self.expect(WRONG_USAGE, "tre", "-d", "access")[1])

    def test_version(self):
        self.assertRegex(self.results("--version"), r"^qzsql \d+\.\d+\.\d+\n$")

    def test_wrong_usage(self):
        for arguments in [
            [],
            ["nonsense"],
            ["tree", "-e", QUERY],
            ["tree", "-d", "access"],
            ["tree", "-d", "access", "-f", "xml", "-e", QUERY],
            ["check", "-d", "access", "-f", "sexpr", "-e", QUERY],
            ["tree", "-d", "access", "--unknown", "-e", QUERY],
            ["tree", "-d", "access", "-f", "svg", "-e", QUERY, "-e", QUERY],
            ["tree", "-d", "access", "-", "-"],
            ["batch", "-d", "access"],
            ["batch", "-d", "access", "--emit", "svg"],
            ["batch", "-d", "access", "--emit", "tree", "-j", "0"],
        ]:
            out, err = self.expect(WRONG_USAGE, *arguments)
            self.assertEqual(out, "", arguments)
            self.assertNotEqual(err, "", arguments)

    def test_unknown_dialect_lists_the_known_ones(self):
        for arguments in [["tree", "-e", QUERY], ["batch", "--emit", "tree"]]:
            _, err = self.expect(WRONG_USAGE, *arguments, "-d", "klingon")
            self.assertRegex(err, "unknown dialect 'klingon'; the known ones are: .*access")

    def test_queries_that_look_like_options(self):
        for query, tokens in [
            ("-h", 'MINUS:"-"\nIDENTIFICATOR:"h"\n'),
            ("[a,b]", 'COL_PAREN_ATTRITION:"[a,b]"\n'),
            ("%%", 'MOD1:"%"\nMOD1:"%"\n'),
            ("", ""),
        ]:
            self.assertEqual(self.results("tokens", "-d", "access", "-e", query), tokens)

    def test_a_file_may_be_named_like_a_command(self):
        path = self.file("batch", QUERY)
        run = self.run_bytes("tree", "-d", "access", "-f", "sexpr", "batch", cwd=os.path.dirname(path))
        self.assertEqual(run.stdout.decode(), SEXPR + "\n")


class Formats(CommandLine):
    def test_tokens_text(self):
        self.assertEqual(
            self.results("tokens", "-d", "access", "-e", 'count "\\\n"'),
            "'count':\"count\"\nWS:\" \" @hidden\nMY_QUOTE_ATTRITION:\"\\\"\\\\\\n\\\"\"\n",
        )

    def test_tokens_json(self):
        tokens = json.loads(self.results("tokens", "-d", "access", "-f", "json", "-e", "a\n b"))
        place = {"line": 2, "column": 2, "offset": 3}
        self.assertEqual(tokens[-1], {"type": "IDENTIFICATOR", "text": "b", "hidden": False, **place})
        self.assertTrue(tokens[1]["hidden"])

    def test_tree_text(self):
        outline = self.results("tree", "-d", "access", "-e", "SELECT a")
        self.assertTrue(outline.startswith("nil\n  SELECT_QUERY\n    SELECT_LIST\n"))
        self.assertTrue(outline.endswith('          IDENTIFICATOR:"a" 1:8\n  EOF\n'))

    def test_tree_sexpr(self):
        self.assertEqual(self.results("tree", "-d", "access", "-f", "sexpr", "-e", QUERY), SEXPR + "\n")

    def test_tree_json(self):
        root = json.loads(self.results("tree", "-d", "access", "-f", "json", "-e", QUERY))
        self.assertEqual([child["type"] for child in root["children"]], ["SELECT_QUERY", "EOF"])

    def test_tree_dot(self):
        dot = self.results("tree", "-d", "access", "-f", "dot", "-e", QUERY)
        self.assertIn('[label="SELECT_QUERY"]', dot)
        self.assertIn("0 -> 1;", dot)

    def test_check_text(self):
        out = self.results("check", "-d", "access", "-e", QUERY + " x", code=NOT_CLEAN)
        self.assertEqual(
            out,
            "trailing\n"
            "1:17: not understood from here on: 1 token, 1 character\n"
            "    SELECT a FROM t x\n"
            "                    ^\n",
        )

    def test_check_json(self):
        verdict = json.loads(self.results("check", "-d", "access", "-f", "json", "-e", QUERY + " x y", code=NOT_CLEAN))
        trailing = {"line": 1, "column": 17, "offset": 16, "count": 2, "text": "x y"}
        self.assertEqual(verdict, {"input": "-e 1", "status": "trailing", "trailing": trailing, "diagnostics": []})

    def test_check_codes(self):
        for query, status, code in [(QUERY, "clean", DONE), (QUERY + ";", "clean", DONE), ("x", "error", NOT_CLEAN)]:
            out = self.results("check", "-d", "access", "-e", query, code=code)
            self.assertEqual(out.split("\n")[0], status)

    def test_several_inputs_are_headed_in_text(self):
        path = self.file("q.sql", "b")
        out = self.results("tokens", "-d", "access", "-e", "x", "-e", "y", path, "-", stdin="c")
        names = ["-e 1", "-e 2", path, "-"]
        self.assertEqual(out, "".join(f'== {n}\nIDENTIFICATOR:"{t}"\n' for n, t in zip(names, "xybc")))

    def test_several_inputs_are_lines_in_json(self):
        for command in ["tokens", "tree", "check"]:
            out = self.results(command, "-d", "access", "-f", "json", "-e", "SELECT a", "-e", "SELECT b")
            self.assertEqual(len([json.loads(line) for line in out.splitlines()]), 2)

    def test_one_input_is_not_headed(self):
        self.assertEqual(self.results("tokens", "-d", "access", "-e", "x"), 'IDENTIFICATOR:"x"\n')


class Reports(CommandLine):
    def test_stand_on_standard_error_with_name_and_place(self):
        out, err = self.expect(DONE, "tree", "-d", "access", "-f", "sexpr", "-e", "SELECT a;\f FROM t")
        self.assertEqual(out, SEXPR + "\n")
        self.assertRegex(err, r"^-e 1:1:9: [^\n]*';'[^\n]*\n$")
        out, err = self.expect(DONE, "tree", "-d", "access", "-f", "sexpr", "-e", "x")
        self.assertEqual(out, '(nil (SELECT_QUERY ERROR) IDENTIFICATOR:"x" EOF)\n')
        self.assertRegex(err, r"^-e 1:1:1: [^\n]*\n$")
        _, err = self.expect(DONE, "tokens", "-d", "access", "-e", "a\n;")
        self.assertTrue(err.startswith("-e 1:2:1: "))


class Depth(CommandLine):
    def test_too_deep_nesting_has_line_and_column(self):
        path = self.file("deep.sql", "SELECT\n" + "(" * 900_000)
        out, err = self.expect(NOT_CLEAN, "tree", "-d", "access", "-f", "sexpr", path)
        self.assertTrue(out.startswith("(nil (SELECT_QUERY"))
        self.assertRegex(err, r"deep\.sql:2:\d+: nested too deep")
        out = self.results("check", "-d", "access", "-f", "json", path, code=NOT_CLEAN)
        told = [d for d in json.loads(out)["diagnostics"] if "nested too deep" in d["message"]]
        self.assertEqual([(d["severity"], d["line"]) for d in told], [("error", 2)])

    def test_moderate_nesting_is_no_matter(self):
        path = self.file("deep.sql", "SELECT " + "(" * 20_000 + "a" + ")" * 20_000)
        self.assertEqual(self.results("check", "-d", "access", path), "clean\n")

    def test_nesting_too_deep_fails_the_run_in_every_emission(self):
        record = json.dumps({"id": 1, "sql": "SELECT " + "(" * 900_000})
        for emission in ["tokens", "tree", "check"]:
            out = self.results("batch", "-d", "access", "--emit", emission, code=NOT_CLEAN, stdin=record)
            self.assertEqual(json.loads(out)["status"], "error")


class Pictures(CommandLine):
    def test_tree_svg(self):
        svg = xml.fromstring(self.results("tree", "-d", "access", "-f", "svg", "-e", QUERY + " [<x> &lt; \\ \x01]"))
        texts = [text.text for text in svg.iter("{http://www.w3.org/2000/svg}text")]
        self.assertIn('SELECT_QUERY', texts)
        self.assertIn('COL_PAREN_ATTRITION:"[<x> &lt; \\\\ \u2401]"', texts)
        filled = [shape for shape in svg.iter("{http://www.w3.org/2000/svg}polygon") if shape.get("fill") == "orange"]
        self.assertEqual(len(filled), 1)

    def test_svg_refuses_large_trees(self):
        columns = ", ".join(["a"] * 1000)
        out, err = self.expect(WRONG_USAGE, "tree", "-d", "access", "-f", "svg", "-e", f"SELECT {columns} FROM t")
        self.assertEqual(out, "")
        self.assertIn("-f dot", err)
        self.assertIn("-f text", err)


class Inputs(CommandLine):
    def test_encodings(self):
        query = "SELECT [ä€😀] FROM t"
        expected = self.results("tree", "-d", "access", "-e", query)
        for encoding in ["utf-8", "utf-8-sig"]:
            self.assertEqual(self.results("tree", "-d", "access", self.file("q", query.encode(encoding))), expected)
        for mark, encoding in [(b"\xff\xfe", "utf-16-le"), (b"\xfe\xff", "utf-16-be")]:
            content = mark + query.encode(encoding)
            self.assertEqual(self.results("tree", "-d", "access", self.file("q", content)), expected)
            self.assertEqual(self.results("tree", "-d", "access", "-", stdin=content), expected)

    def test_nul_is_a_character_like_any_other(self):
        out = self.results("tokens", "-d", "access", "-f", "json", self.file("q", b"[a\0b]"))
        self.assertEqual(json.loads(out)[0]["text"], "[a\0b]")

    def test_lone_surrogates_of_utf16_survive(self):
        path = self.file("q", b"\xff\xfe" + "[a\ud800]".encode("utf-16-le", "surrogatepass"))
        self.assertEqual(self.results("tokens", "-d", "access", path), 'COL_PAREN_ATTRITION:"[a\\ud800]"\n')
        self.assertIn('"[a\\ud800]"', self.results("tokens", "-d", "access", "-f", "json", path))

    def test_bad_inputs_are_told_and_the_others_handled(self):
        bad = self.file("bad.sql", b"SELECT \xe4")
        odd = self.file("odd.sql", b"\xff\xfea")
        good = self.file("good.sql", QUERY)
        missing = os.path.join(self.folder, "missing.sql")
        names = [bad, odd, missing, self.folder, good, "-"]
        out, err = self.expect(UNREADABLE, "check", "-d", "access", *names, stdin="x")
        self.assertTrue(out.startswith(f"== {good}\nclean\n== -\nerror\n"), out)
        lines = err.splitlines()
        self.assertEqual(len(lines), 4)
        self.assertIn(f"{bad}: byte 7 is not UTF-8; convert", lines[0])
        self.assertIn(f"{odd}: byte 2 is half a UTF-16 unit", lines[1])
        self.assertIn(f"{missing}: No such file or directory", lines[2])
        self.assertIn(f"{self.folder}: Is a directory", lines[3])

    def test_what_is_shown_has_no_control_characters(self):
        out = self.results("check", "-d", "access", "-e", QUERY + " \x1b x", code=NOT_CLEAN)
        self.assertEqual(out.splitlines()[-2:], ["    SELECT a FROM t \u241b x", "                      ^"])
        self.assertNotIn("\x1b", out)


class Memory(CommandLine):
    """A process that may take less than a text needs."""

    LIMIT = 160 << 20

    def starved(self, *arguments, stdin=b""):
        run = self.run_bytes(*arguments, stdin=stdin,
                             preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (self.LIMIT, self.LIMIT)))
        return run.returncode, run.stdout.decode(), run.stderr.decode()

    def large(self):
        return "SELECT " + "a + " * 400_000 + "a FROM t"

    def test_the_input_is_named_and_the_others_are_shown(self):
        large, small = self.file("large.sql", self.large()), self.file("small.sql", QUERY)
        for command in ["tokens", "tree", "check", "model"]:
            code, out, err = self.starved(command, "-d", "access", large, small)
            self.assertEqual(code, OUT_OF_MEMORY, (command, err))
            self.assertIn(f"qzsql: {large}: out of memory; give the process more of it, or a smaller input\n", err)
            self.assertIn(f"== {small}\n", out)

    def test_a_record_fails_and_the_others_are_answered(self):
        records = "".join(json.dumps({"id": sql[:9], "sql": sql}) + "\n" for sql in [QUERY, self.large(), QUERY])
        code, out, err = self.starved("batch", "-d", "access", "--emit", "tree", stdin=records.encode())
        self.assertEqual((code, err), (OUT_OF_MEMORY, ""))
        answers = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([answer.get("tree") for answer in answers], [SEXPR, None, SEXPR])
        self.assertEqual(answers[1]["error"],
                         "line 2: out of memory; give the process more of it, or a smaller input")


class Output(CommandLine):
    def test_a_reader_that_has_gone_ends_the_run_quietly(self):
        records = self.file("in", ('{"sql":"SELECT a"}\n' * 20_000))
        for arguments in [
            ["batch", "-d", "access", "--emit", "tree", records],
            ["tree", "-d", "access", *["-e", "SELECT " + ",".join("a" * 5000)] * 3],
        ]:
            process = subprocess.Popen([QZSQL, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            process.stdout.read(10)
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            self.assertEqual(process.wait(60), DONE)
            process.stderr.close()

    def test_a_batch_ends_with_its_reader_though_more_could_come(self):
        with subprocess.Popen(
            [QZSQL, "batch", "-d", "access", "--emit", "tree"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
        ) as process:
            process.stdout.close()
            process.stdin.write(b'{"sql":"SELECT a"}\n')
            process.stdin.flush()
            self.assertEqual(process.wait(60), DONE)
            self.assertEqual(process.stderr.read(), b"")

    def test_a_standard_error_that_takes_nothing_changes_nothing(self):
        for arguments, code in [
            (["tree", "-d", "access", "-f", "sexpr", "-e", "SELECT a;", "/nowhere"], UNREADABLE),
            (["tree", "-d", "access"], WRONG_USAGE),
        ]:
            expected, _ = self.expect(code, *arguments)
            with open("/dev/full", "wb") as full:
                run = subprocess.run([QZSQL, *arguments], stdout=subprocess.PIPE, stderr=full, timeout=60)
            self.assertEqual((run.returncode, run.stdout.decode()), (code, expected))

    def test_a_full_disk_is_told(self):
        records = self.file("in", '{"sql":"SELECT a"}\n')
        for arguments in [["tree", "-d", "access", "-e", QUERY], ["batch", "-d", "access", "--emit", "tree", records]]:
            with open("/dev/full", "wb") as full:
                run = subprocess.run([QZSQL, *arguments], stdout=full, stderr=subprocess.PIPE, timeout=60)
            self.assertEqual(run.returncode, UNREADABLE)
            self.assertEqual(run.stderr, b"qzsql: standard output: No space left on device\n")


class Batch(CommandLine):
    def batch(self, lines, *arguments, code=DONE, dialect=("-d", "access"), emit="tree"):
        out = self.results("batch", *dialect, "--emit", emit, *arguments, code=code, stdin=lines)
        return [json.loads(line) for line in out.splitlines()]

    def test_order_with_many_threads(self):
        lines = []
        for number in range(2000):
            weight = 1 + number * 7919 % 50
            lines.append(json.dumps({"id": number, "sql": "SELECT " + ", ".join(["a"] * weight)}))
        records = "\n".join(lines) + "\n"
        one = self.results("batch", "-d", "access", "--emit", "tree", stdin=records)
        four = self.results("batch", "-d", "access", "--emit", "tree", "-j", "4", stdin=records)
        self.assertEqual([json.loads(line)["id"] for line in four.splitlines()], list(range(2000)))
        self.assertEqual(one, four)

    def test_emissions(self):
        record = json.dumps({"id": 1, "sql": QUERY})
        self.assertEqual(self.batch(record), [{"id": 1, "status": "clean", "tree": SEXPR}])
        tokens = self.results("tokens", "-d", "access", "-e", QUERY).splitlines()
        self.assertEqual(self.batch(record, emit="tokens"), [{"id": 1, "status": "clean", "tokens": tokens}])
        (answer,) = self.batch(record, emit="check")
        check = json.loads(self.results("check", "-d", "access", "-f", "json", "-e", QUERY))
        self.assertEqual(answer, {"id": 1, "status": "clean", "check": {**check, "input": "-:1"}})

    def test_exit_codes(self):
        trailing = json.dumps({"sql": QUERY + " x"})
        self.assertEqual(self.batch(trailing)[0]["status"], "trailing")
        self.batch(trailing, emit="check", code=NOT_CLEAN)
        self.batch("nonsense", code=NOT_CLEAN)
        self.assertEqual(self.batch(""), [])

    def test_white_space_that_makes_no_token_is_nothing(self):
        record = json.dumps({"sql": "SELECT\t a\r\n FROM " + " " * 10000 + "t"})
        tokens = ['SELECT_KEYWORD:"SELECT"', 'IDENTIFICATOR:"a"', 'FROM_KEYWORD:"FROM"', 'IDENTIFICATOR:"t"']
        (answer,) = self.batch(record, emit="tokens", dialect=("-d", "mssql"))
        self.assertEqual(answer, {"id": None, "status": "clean", "tokens": tokens})
        (answer,) = self.batch(record, emit="check", dialect=("-d", "mssql"))
        self.assertEqual(answer["check"]["diagnostics"], [])
        self.assertEqual(self.results("check", "-d", "mssql-from", "-e", "a \t JOIN b"), "clean\n")
        self.assertTrue(self.results("check", "-d", "mssql-from", "-e", "a, b", code=NOT_CLEAN).startswith("error\n"))

    def test_bad_lines_are_answered_and_the_work_goes_on(self):
        lines = ['{"id":1,"sql":"SELECT a"}', "", "nonsense", '{"id":2,"sql":5}', "  ", '{"id":3,"sql":"SELECT a"}']
        answers = self.batch("\n".join(lines), "-j", "3", code=NOT_CLEAN)
        self.assertEqual([answer["id"] for answer in answers], [1, None, 2, 3])
        self.assertRegex(answers[1]["error"], "^line 3: ")
        self.assertEqual(answers[2]["error"], 'line 4: "sql" is missing or no string')
        self.assertEqual(answers[3]["status"], "clean")

    def test_bytes_that_are_not_utf8_fail_one_line(self):
        answers = self.batch(b'{"id":1,"sql":"\xff"}\n{"id":2,"sql":"SELECT a"}\n', code=NOT_CLEAN)
        self.assertEqual(answers[0], {"id": 1, "error": "line 1: byte 16: not UTF-8"})
        self.assertEqual(answers[1]["status"], "clean")

    def test_ids_come_back_as_they_were_written(self):
        ids = ["1.0", "1e400", "12345678901234567890123", r'"\ud800\u0041"', "null", '[1, {"a" : 2}]', '{"sql":2}']
        lines = "".join('{"id": %s , "sql":"SELECT a"}\n' % identity for identity in ids)
        out = self.results("batch", "-d", "access", "--emit", "tree", stdin=lines)
        for identity, line in zip(ids, out.splitlines()):
            self.assertTrue(line.startswith('{"id":%s,"status"' % identity), line)

    def test_lone_surrogates_survive(self):
        out = self.results("batch", "-d", "access", "--emit", "tree", stdin='{"id":1,"sql":"a\\ud800b"}')
        tree = r'(nil (SELECT_QUERY ERROR) IDENTIFICATOR:\"a\ud800b\" EOF)'
        self.assertEqual(out, '{"id":1,"status":"error","tree":"%s"}\n' % tree)

    def test_the_dialect_of_a_record(self):
        line = json.dumps({"sql": QUERY, "dialect": "access"})
        self.assertEqual(self.batch(line, dialect=())[0]["tree"], SEXPR)
        (answer,) = self.batch(json.dumps({"sql": QUERY}), dialect=(), code=NOT_CLEAN)
        self.assertIn("dialect", answer["error"])

    def test_hostile_records(self):
        depth = 1_000_000
        lines = [
            '{"id":' + "[" * depth + "]" * depth + ',"sql":"SELECT a"}',
            '{"id":2,"x":' + "[" * depth,
            '{"id":3,"sql":"SELECT a' + " " * 300_000 + 'FROM t"}',
        ]
        out = self.results("batch", "-d", "access", "--emit", "tree", "-j", "4", code=NOT_CLEAN, stdin="\n".join(lines))
        answers = out.splitlines()
        self.assertEqual(len(answers), 3)
        self.assertTrue(answers[0].startswith('{"id":' + "[" * depth + "]" * depth + ',"status":"clean"'))
        self.assertRegex(json.loads(answers[1])["error"], "^line 2: ")
        self.assertEqual(json.loads(answers[2])["tree"], SEXPR)

    def test_answers_come_while_the_input_is_open(self):
        with subprocess.Popen(
            [QZSQL, "batch", "-d", "access", "--emit", "tree", "-j", "2"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE,
        ) as process:
            for number in range(5):
                process.stdin.write(b'{"id":%d,"sql":"SELECT a"}\n' % number)
                process.stdin.flush()
                self.assertEqual(json.loads(process.stdout.readline())["id"], number)
            process.stdin.close()
            self.assertEqual(process.wait(60), DONE)

    def test_files_and_marks(self):
        record = json.dumps({"id": 1, "sql": QUERY})
        self.assertEqual(self.batch("", self.file("in", b"\xef\xbb\xbf" + record.encode()))[0]["tree"], SEXPR)
        for content in [None, b"\xff\xfe" + record.encode("utf-16-le")]:
            path = self.file("in", content) if content else self.folder
            out, err = self.expect(UNREADABLE, "batch", "-d", "access", "--emit", "tree", path)
            self.assertEqual(out, "")
            self.assertIn(path, err)

    def test_progress_on_a_terminal(self):
        terminal, side = pty.openpty()
        with subprocess.Popen(
            [QZSQL, "batch", "-d", "access", "--emit", "tree"],
            stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=side,
        ) as process:
            os.close(side)
            for _ in range(3):
                process.stdin.write(b'{"sql":"SELECT a"}\n')
                process.stdin.flush()
                time.sleep(0.25)
            shown = os.read(terminal, 1000).decode()
            process.stdin.close()
        os.close(terminal)
        self.assertRegex(shown, r"\d+ records, \d+ a second")


if __name__ == "__main__":
    unittest.main()
