#!/usr/bin/env python3
"""Makes the recognizers of one grammar: runs the ANTLR 3 tool, lets no real warning of it through, and fits the C files
to this library (dialect/recognizer.h). Also writes the grammar's table of functions and the header of its token types.

    generate_recognizers.py GRAMMAR.g OUTPUT_FOLDER TOKENS_HEADER KEPT_FOLDER

What the tool makes of a grammar is kept in KEPT_FOLDER, for the builds to come.
"""

import hashlib
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from fast_parser import fast_parser

# Messages of the tool's own templates, a few thousand a run; every other warning or error is about the grammar.
NOISE = re.compile(r"^warning\(24\): +template error: ")


def run_tool(grammar: Path, output: Path) -> None:
    run = subprocess.run(["antlr3", "-fo", str(output), str(grammar)], capture_output=True, text=True, check=False)
    lines = (run.stdout + run.stderr).splitlines()
    real = [line for line in lines if line.strip() and not NOISE.match(line)]
    if real or run.returncode != 0:
        sys.exit("\n".join(real) or f"antlr3 ended with code {run.returncode}")


def take_tool_output(grammar: Path, output: Path, kept: Path) -> None:
    digest = hashlib.sha256(grammar.read_bytes()).hexdigest()[:16]
    made = kept / f"{grammar.stem}-{digest}"
    if not made.is_dir():
        kept.mkdir(parents=True, exist_ok=True)
        with tempfile.TemporaryDirectory(dir=kept) as folder:
            fresh = Path(folder) / "fresh"
            fresh.mkdir()
            run_tool(grammar, fresh)
            fresh.rename(made)
    shutil.copytree(made, output, dirs_exist_ok=True)


def include_support(text: str, header: str, defines: str = "") -> str:
    mark = f'#include    "{header}"\n'
    if text.count(mark) != 1:
        sys.exit(f"{header}: not included where it was expected")
    return text.replace(mark, f'{mark}{defines}#include "QZParserSQL/dialect/recognizer.h"\n')


def guard_rules(text: str) -> str:
    """Puts the guard against too deep nesting at the entry of each rule."""
    entry = re.compile(r"\b(\w+)_StartIndex = INDEX\(\);(.*?)\n    retval\.tree  = NULL;\n", re.S)
    guarded, count = entry.subn(lambda m: f"{m.group(0)}    QZ_GUARD_NESTING(rule{m.group(1)}Ex)\n", text)
    if count == 0 or count != len(re.findall(r"^    rule\w+Ex: ;$", text, re.M)):
        sys.exit("a rule is not of the expected form")
    return guarded


def check_memory(text: str) -> str:
    """Lets the constructor give null where it is given null."""
    for part, made, free in [("ctx->pParser", r"antlr3ParserNewStream\(.*\)", "ANTLR3_FREE(ctx)"),
                             ("RULEMEMO", r"antlr3IntTrieNew\(15\)", "ctx->free(ctx)")]:
        check = f"\n    if ({part} == NULL) {{ {free}; return NULL; }}"
        text, count = re.subn(rf"{part}\s+= {made};", rf"\g<0>{check}", text)
        if count != 1:
            sys.exit("the constructor of the parser is not of the expected form")
    return text


# One more item of a list: the rule next_expression, if there is one, is only ever called as next_expression*.
def repeated_rule(text: str) -> int:
    numbers = set(re.findall(r"MEMOIZE\((\d+), next_expression_StartIndex\)", text))
    return int(numbers.pop()) if numbers else 0


def fit_lexer(path: Path, name: str) -> None:
    text = include_support(path.read_text(), f"{name}Lexer.h")
    mark = re.compile(r"#define\s+INVALID ANTLR3_TOKEN_INVALID\n")
    fast = '#ifndef QZ_PLAIN_RECOGNIZERS\n#include "QZParserSQL/dialect/fast_lexer.h"\n#endif\n'
    text, count = mark.subn(lambda m: m.group(0) + fast, text)
    if count != 1:
        sys.exit("the tool's macros end in another way")
    path.write_text(text)


# The plain form keeps the tool's rules as they are.
def fit_parser(path: Path, name: str) -> str:
    text = path.read_text()
    rules = 1 + max(int(n) for n in re.findall(r"HAVEPARSEDRULE\((\d+)\)", text))
    defines = f"#define QZ_RULE_COUNT {rules}\n#define QZ_REPEATED_RULE {repeated_rule(text)}\n"
    text = check_memory(include_support(text, f"{name}Parser.h", defines))
    path.with_name(f"{name}FastParser.c").write_text(fast_parser(text, name))
    path.write_text(guard_rules(text))
    entry = re.search(r"^    ctx->(\w+)\t= \1;$", text, re.M)
    return entry.group(1)


def read_tokens(path: Path) -> tuple[dict[str, int], dict[int, str]]:
    names, literals = {}, {}
    for line in path.read_text().splitlines():
        key, number = line.rsplit("=", 1)
        if key.startswith("'"):
            literals[int(number)] = key
        else:
            names[key] = int(number)
    return names, literals


# The words and signs that count in one case only are shown as their text.
def display_names(names: dict[str, int], literals: dict[int, str]) -> list[str]:
    by_number = {number: name for name, number in names.items()}
    shown = []
    for number in range(max(by_number) + 1):
        name = by_number.get(number, "")
        stands_for_itself = name.startswith(("WORD_", "SIGN_"))
        shown.append(literals[number].replace("\\'", "'") if stands_for_itself else name)
    return shown


# Names that system headers define as macros; a host may have included those before.
SYSTEM_MACROS = {"CONST", "DATE", "DELETE", "ERROR", "IN", "MAX", "MIN", "OPTIONAL", "OUT", "STRICT"}


def without_macros(names: set[str], text: str) -> str:
    push = "".join(f'#pragma push_macro("{name}")\n#undef {name}\n' for name in sorted(names))
    pop = "".join(f'#pragma pop_macro("{name}")\n' for name in sorted(names))
    return f"{push}{text}{pop}"


def write_token_header(path: Path, name: str, names: dict[str, int]) -> None:
    rows = "\n".join(f"    {token} = {number}," for token, number in sorted(names.items(), key=lambda kv: kv[1]))
    path.parent.mkdir(parents=True, exist_ok=True)
    tokens = f"""/// The vocabulary of the grammar {name}.
namespace {name} {{

/// What GetType of a view and QZTypeOf give for a tree of this grammar. WORD_x and SIGN_x are the words and signs that
/// count in one case only; QZTokenName shows them in quotes.
enum TokenType : std::uint32_t {{
{rows}
}};

}}  // namespace {name}
"""
    head = f"// The token types of the grammar {name}. Made by the build.\n#pragma once\n\n#include <cstdint>\n\n"
    path.write_text(head + without_macros(SYSTEM_MACROS & set(names), tokens))


def write_table(path: Path, name: str, entry: str, shown: list[str]) -> None:
    rows = "\n".join("    " + ('"' + s.replace("\\", "\\\\").replace('"', '\\"') + '",' if s else "0,") for s in shown)
    path.write_text(
        f"""/* The grammar {name} as a table of functions. Made by the build. */
#include "{name}Lexer.h"
#include "{name}Parser.h"
#include "QZParserSQL/dialect/GrammarTable.h"
#include "QZParserSQL/dialect/recognizer.h"

static const char* const tokenNames[] = {{
{rows}
}};

static void* newLexer(pANTLR3_INPUT_STREAM input) {{ return {name}LexerNew(input); }}
static void* newParser(pANTLR3_COMMON_TOKEN_STREAM tokens) {{ return {name}ParserNew(tokens); }}

static pANTLR3_BASE_TREE runEntryRule(void* parser) {{
    p{name}Parser ctx = (p{name}Parser)parser;
    return qzWholeTree(ctx->adaptor, ctx->{entry}(ctx).tree);
}}

static void freeLexer(void* lexer) {{ ((p{name}Lexer)lexer)->free((p{name}Lexer)lexer); }}
static void freeParser(void* parser) {{ ((p{name}Parser)parser)->free((p{name}Parser)parser); }}

const struct QZGrammar qzGrammar{name} = {{"{name}", tokenNames, sizeof tokenNames / sizeof *tokenNames,
    newLexer, newParser, runEntryRule, freeLexer, freeParser}};
"""
    )


def main() -> None:
    grammar, output, tokens_header, kept = map(Path, sys.argv[1:])
    grammar = grammar.resolve()
    name = grammar.stem
    take_tool_output(grammar, output, kept)
    fit_lexer(output / f"{name}Lexer.c", name)
    entry = fit_parser(output / f"{name}Parser.c", name)
    names, literals = read_tokens(output / f"{name}.tokens")
    write_token_header(tokens_header, name, names)
    write_table(output / f"{name}Grammar.c", name, entry, display_names(names, literals))


main()
