"""Makes the fast form of a parser from the C file of the ANTLR 3 tool: each rule becomes two functions.

A rule that guesses and a rule that builds a tree are never the same call: whether a rule is entered within a syntactic
predicate is known where it is called. So each rule NAME of the tool becomes

    NAME_guess(ctx, place)   reads on from a place and gives the place behind, or QZ_FAILED; it makes nothing
    NAME_tree(ctx)           what remains of the rule outside of guesses; it gives the tree
    NAME(ctx)                the entry of the context's table, for callers outside

The pieces are those of the tool, in its order; dialect/fast_parser.h says what their macros do. Whatever is not of the
expected form ends the build.
"""

import re
import sys

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.S)
RULE = re.compile(r"/\*\*\n \* \$ANTLR start (\w+)\n.*?\n(static (\w+)\n\1\((\w+) ctx\)\n\{\n.*?\n\})\n/\* \$ANTLR end \1 \*/\n",
                  re.S)
FRAGMENT = re.compile(r"static void (synpred\d+_\w+)_fragment\(\w+ ctx \)\n\{\n(.*?)\n\}\n// \$ANTLR end \1\n", re.S)
PREDICATE = re.compile(r"static ANTLR3_BOOLEAN (synpred\d+_\w+)\(\w+ ctx\)\n\{\n.*?\n\}\n", re.S)
FORWARD = re.compile(r"static *\n \w+\n\t\w+ +\(\w+ ctx\);\n")
CALL = re.compile(r"(?:(\w+)=)?\b(\w+)\(ctx\);")
FAILURE = r"\s*if \(HASFAILED\(\)\)\s*\{\s*return ?(?:retval)?;\s*\}"
EXCEPTION = re.compile(r"\s*if +\(HASEXCEPTION\(\)\)\s*\{\s*goto rule\w+Ex;\s*\}")
ERROR = re.compile(r"\bCONSTRUCTEX\(\);(?:\s*EXCEPTION->\w+\s*=[^;]*;)*(?:\s*goto rule\w+Ex;)?")
GUESS_FAILS = re.compile(r"if \(BACKTRACKING>0\)\s*\{\s*FAILEDFLAG = ANTLR3_TRUE;\s*return ?(?:retval)?;\s*\}")
BUILD = "if ( BACKTRACKING==0 )"
NIL_ROOT = re.compile(r"\s*root_0 = \(pANTLR3_BASE_TREE\)\(ADAPTOR->nilNode\(ADAPTOR\)\);")
MARK = re.compile(r"[{}]|\b(?:case|default|QZ_GUESS_RULE|QZ_GUESS_MATCH|CONSUME|MATCHANYT)\b")
FOREIGN = re.compile(r"\b(retval|BACKTRACKING|ADAPTOR|EXCEPTION|FAILEDFLAG|HASFAILED|MATCHT|goto rule\w+|root_\d|INDEX)\b")


def expect(condition: bool, what: str) -> None:
    if not condition:
        sys.exit(f"fast parser: {what}")


def end_of_statement(text: str, start: int) -> int:
    """The index behind the block or the statement that begins at `start`."""
    depth, place = 0, start
    while True:
        character = text[place]
        if character == '"':
            place = text.index('"', place + 1)
        elif character in "({":
            depth += 1
        elif character in ")}":
            depth -= 1
        place += 1
        if depth == 0 and character in ";}":
            return place


def without_building(text: str) -> str:
    """Leaves out what is done outside of guesses only."""
    while (start := text.find(BUILD)) >= 0:
        behind = start + len(BUILD)
        behind += len(text[behind:]) - len(text[behind:].lstrip())
        text = text[:start] + text[end_of_statement(text, behind):]
    return text


def stands_first(guess: str, call: int) -> bool:
    """Whether nothing can have been read when the call is reached."""
    frames = [{"loop": False, "read": False, "ever": False}]
    for mark in MARK.finditer(guess, 0, call):
        what = mark.group(0)
        if what == "{":
            head = guess[:mark.start()].rstrip()
            frames.append({"loop": re.search(r"(for *\(;;\)|while *\(.*\)|do)$", head) is not None, "read": False, "ever": False})
        elif what == "}":
            frames[-2]["read"] |= frames[-1]["ever"]
            frames[-2]["ever"] |= frames.pop()["ever"]
        elif what == "case" or what == "default":
            frames[-1]["read"] = False
        else:
            frames[-1]["read"] = frames[-1]["ever"] = True
    return not any(frame["read"] or frame["loop"] for frame in frames)


class Parser:
    def __init__(self, text: str, name: str):
        self.text = text
        self.name = name
        self.context = f"p{name}Parser"
        self.rules = [(m.group(1), m.group(3), COMMENT.sub("", m.group(2))) for m in RULE.finditer(text)]
        self.fragments = [(m.group(1), COMMENT.sub("", m.group(2))) for m in FRAGMENT.finditer(text)]
        self.predicates = PREDICATE.findall(text)
        expect(len(self.rules) > 10 and len(self.fragments) == len(self.predicates), "no rules")
        expect(len(self.rules) == len(re.findall(r"\$ANTLR start (?!synpred)\w+\n", text)), "a rule was not recognized")
        self.names = [name for name, _, _ in self.rules]
        self.own = {name: self.own_declarations(name, rule) for name, _, rule in self.rules}
        self.guesses = {name: self.guessing(name, self.body_of(name, rule)) for name, _, rule in self.rules}
        self.fragment_guesses = {name: self.guessing(name, body[:body.rindex(f"goto rule{name}Ex;")])
                                 for name, body in self.fragments}
        called_once = self.called_once()
        remembered = [name for name in self.names if not self.wrapped(name) and name not in called_once]
        self.number_of = {name: number for number, name in enumerate(remembered)}

    # ---------------------------------------------------------------------------------------------- parts of a rule

    def body_of(self, name: str, rule: str) -> str:
        marks = re.search(r"retval\.tree  = NULL;\n(.*)\n\s*goto rule" + name + r"Ex;\s*rule" + name + "Ex: ;", rule, re.S)
        expect(marks is not None, f"{name} has no body")
        return marks.group(1)

    @staticmethod
    def own_declarations(name: str, rule: str) -> tuple[str, str]:
        """The grammar's own declarations and what it does at the entry."""
        declared = re.search(r"pANTLR3_BASE_TREE root_0;\n(.*?)\n +" + name + r"_StartIndex = INDEX\(\);", rule, re.S)
        entered = re.search(r"\n +root_0 = NULL;\n(.*?)\n +if \( \(BACKTRACKING>0\) && \(HAVEPARSEDRULE", rule, re.S)
        expect(declared is not None and entered is not None, f"{name} begins in another way")
        tools = re.compile(r"\s*(?:pANTLR3_COMMON_TOKEN {4}\w+;|pANTLR3_BASE_TREE \w+_tree;|pANTLR3_REWRITE\w+ \w+;|"
                           r"\w+_return \w+;|#undef.*|#define.*)$")
        own = [line for line in declared.group(1).splitlines() if line.strip() and not tools.match(line)]
        return "\n".join(own), entered.group(1).strip()

    # -------------------------------------------------------------------------------------------------------- guesses

    def guessing(self, what: str, body: str) -> str:
        text = without_building(body)
        text = re.sub(r"\s*FOLLOW(PUSH|POP)\(.*?\);", "", text)
        text = GUESS_FAILS.sub("return QZ_FAILED;", text)
        text = ERROR.sub("", text)
        text = EXCEPTION.sub("", text)
        text = NIL_ROOT.sub("", text)
        text = re.sub(r"\w+ ?= ?\(pANTLR3_COMMON_TOKEN\) ?LT\(1\);", "", text)
        text = re.sub(r"(?:\w+ = \(pANTLR3_COMMON_TOKEN\) )?MATCHT\((\w+), &\w+\);\s*" + FAILURE, r"QZ_GUESS_MATCH(\1)", text)
        text = re.sub(r"MATCHANYT\(\);\s*" + FAILURE, "MATCHANYT();", text)
        text = text.replace("FAILEDFLAG=ANTLR3_FALSE;", "")
        text = re.sub(CALL.pattern + FAILURE, lambda m: self.guess_call(m.group(2)), text)
        text = re.sub(r"\b(synpred\d+_\w+)\(ctx\)", r"(\1_guess(ctx, place) != QZ_FAILED)", text)
        text = text.replace("ctx->pParser", "QZ_PARSER_AT(place)")
        foreign = FOREIGN.search(text)
        expect(foreign is None, f"{what}: {foreign and foreign.group(0)} remains in its guess")
        return re.sub(r"\n\s*\n+", "\n", text)

    def guess_call(self, called: str) -> str:
        expect(called in self.names, f"{called} is called but is no rule")
        return f"QZ_GUESS_RULE({called})"

    def guess_rule(self, name: str) -> str:
        declared, entered = self.own[name]
        head = f"static ANTLR3_UINT32 {name}_guess({self.context} ctx, ANTLR3_UINT32 place)\n{{\n"
        if self.wrapped(name):
            return f"{head}    return {self.wrapped(name)}_guess(ctx, place);\n}}\n"
        entered = entered.replace("ctx->pParser", "QZ_PARSER_AT(place)")
        if name not in self.number_of:
            return f"{head}{declared}\n    {entered}\n    QZ_GUESS_NESTING()\n{self.guesses[name]}\n    return place;\n}}\n"
        number = self.number_of[name]
        kind = "REPEATED" if name == "next_expression" else "REMEMBERED"
        return (f"{head}{declared}\n    {entered}\n    QZ_{kind}({number})\n    QZ_GUESS_NESTING()\n{self.guesses[name]}\n"
                f"    QZ_REMEMBER({number})\n    return place;\n}}\n")

    def wrapped(self, name: str) -> str | None:
        """The one rule that this rule calls and no more: what is remembered of that is enough."""
        call = re.fullmatch(r"[{\s]*QZ_GUESS_RULE\((\w+)\)[}\s]*", self.guesses[name])
        return call and not any(self.own[name]) and call.group(1)

    def called_once(self) -> set[str]:
        """The rules whose result is never asked for a second time: one other rule calls them, and at its own place."""
        calls: dict[str, list[bool]] = {}
        callers = [(self.guesses[name], True) for name in self.names if not self.wrapped(name)]
        callers += [(guess, False) for guess in self.fragment_guesses.values()]
        for guess, is_rule in callers:
            for call in re.finditer(r"QZ_GUESS_RULE\((\w+)\)", guess):
                called = call.group(1)
                while self.wrapped(called):
                    called = self.wrapped(called)
                calls.setdefault(called, []).append(is_rule and stands_first(guess, call.start()))
        return {name for name, first in calls.items() if first == [True]}

    def guess_fragment(self, name: str) -> str:
        body = self.fragment_guesses[name]
        return f"static ANTLR3_UINT32 {name}_guess({self.context} ctx, ANTLR3_UINT32 place)\n{{\n{body}\n    return place;\n}}\n"

    # ---------------------------------------------------------------------------------------------------------- trees

    def building(self, text: str) -> str:
        text = re.sub(FAILURE, "", text)
        text = GUESS_FAILS.sub("", text)
        text = text.replace(BUILD, "")
        text = CALL.sub(lambda m: f"{m.group(1)}.tree = {m.group(2)}_tree(ctx);" if m.group(2) in self.names else m.group(0), text)
        text = re.sub(r"\b(synpred\d+_\w+)\(ctx\)", r"QZ_GUESSED(\1)", text)
        text = text.replace("ctx->pParser", "QZ_PARSER_AT(QZ_PLACE)")
        text = re.sub(r"pANTLR3_REWRITE_RULE_(?:SUBTREE|TOKEN)_STREAM (stream_\w+);", r"QZStream \1;", text)
        text = re.sub(r"#define CREATE_stream_.*", "", text)
        text = re.sub(r"CREATE_stream_\w+;", "", text)
        text = re.sub(r"(stream_\w+)   = NULL;", r"\1 = QZ_NO_ELEMENT;", text)
        text = re.sub(r"stream_retval=antlr3RewriteRuleSubtreeStreamNewAEE\(.*?\);", "", text)
        text = re.sub(r"if \( ?stream_\w+ != NULL\) (stream_\w+)->(free|reset)\(\1\);", "", text)
        text = re.sub(r"\((stream_\w+) != NULL && \1->hasNext\(\1\)\)", r"(\1 != QZ_NO_ELEMENT)", text)
        text = re.sub(r"(stream_\w+) == NULL \? NULL : \1->nextTree\(\1\)", r"QZ_TAKE(\1)", text)
        text = re.sub(r"(stream_\w+)->add\(\1, (\w+(?:\.tree)?), NULL\);", r"QZ_PUT(\1, \2);", text)
        text = re.sub(r"\(pANTLR3_BASE_TREE\)\(ADAPTOR->nilNode\(ADAPTOR\)\)", "QZ_EMPTY", text)
        text = re.sub(r"ADAPTOR->create\(ADAPTOR, (\w+)\)", r"qzTokenNode(QZP, \1)", text)
        text = re.sub(r'ADAPTOR->createTypeText\(ADAPTOR, (\w+), \(pANTLR3_UINT8\)"\w+"\)', r"qzImaginaryNode(QZP, \1)", text)
        text = re.sub(r"ADAPTOR->becomeRoot\(ADAPTOR, ", "qzBecomeRoot(QZP, ", text)
        text = re.sub(r"ADAPTOR->addChild\(ADAPTOR, (root_\d+), ", r"\1 = qzAddChild(QZP, \1, ", text)
        return text

    def tree_rule(self, name: str, rule: str) -> str:
        declared, entered = self.own[name]
        locals_ = re.search(r"pANTLR3_BASE_TREE root_0;\n(.*?)\n +" + name + r"_StartIndex = INDEX\(\);", rule, re.S).group(1)
        locals_ = re.sub(r"\s*#(undef|define).*", "", locals_)
        streams = "\n".join(re.findall(r"    stream_\w+   = NULL;", rule))
        body = self.building(locals_) + "\n    " + self.building(entered) + "\n    root_0 = QZ_EMPTY;\n" + self.building(streams)
        body += f"\n    QZ_GUARD_TREE(rule{name}Ex)\n" + self.building(self.body_of(name, rule))
        expect("ADAPTOR" not in body and not re.search(r"stream_\w+->", body), f"{name}: not all of its tree was recognized")
        adds = [stream for stream in re.findall(r"QZ_PUT\((stream_\w+)", body)]
        loops = "for (;;)" in body
        expect(not (loops and adds), f"{name}: an element of a rewrite stands in a loop")
        return (f"static pANTLR3_BASE_TREE {name}_tree({self.context} ctx)\n{{\n    pANTLR3_BASE_TREE root_0;\n"
                f"    struct {{ pANTLR3_BASE_TREE tree; }} retval;\n    retval.tree = NULL;\n{body}\n"
                f"    rule{name}Ex: ;\n    QZ_LEAVE()\n    return retval.tree;\n}}\n")

    def entry(self, name: str, returned: str) -> str:
        return f"static {returned} {name}({self.context} ctx)\n{{\n    {returned} result;\n    QZ_ENTER(result, {name}_tree)\n    return result;\n}}\n"

    # ------------------------------------------------------------------------------------------------------- the file

    def made(self) -> str:
        text = self.text
        types = re.search(r"ParserTokenNames\[(\d+)\+4\]", text)
        defines = (f"#define QZ_RULES {len(self.number_of)}\n"
                   f"#define QZ_TOKEN_TYPES {int(types.group(1)) + 4}\n")
        mark = re.search(r"#define\s+INVALID ANTLR3_TOKEN_INVALID\n", text)
        expect(mark is not None, "the tool's macros end in another way")
        support = f'{mark.group(0)}\n{defines}#include "QZParserSQL/dialect/fast_parser.h"\n'
        first = RULE.search(text).start()
        head = FORWARD.sub("", text[:first].replace(mark.group(0), support))
        head = re.sub(r"\n\s*ctx->synpred\w+\s*= synpred\w+;", "", head)
        forward = [f"static {returned} {name}({self.context} ctx);" for name, returned, _ in self.rules]
        early = "\n".join(forward)
        place = head.index("static void\t")
        head = head[:place] + early + "\n" + head[place:]
        inner = [f"static ANTLR3_UINT32 {name}_guess({self.context} ctx, ANTLR3_UINT32 place);"
                 for name in [*(rule[0] for rule in self.rules), *(f[0] for f in self.fragments)]]
        inner += [f"static pANTLR3_BASE_TREE {name}_tree({self.context} ctx);" for name in self.names]
        parts = [head, "\n".join(inner), "\n#include \"QZParserSQL/dialect/fast_parser_guess.h\"\n"]
        parts += [self.guess_rule(name) for name in self.names]
        parts += [self.guess_fragment(name) for name, _ in self.fragments]
        parts += ["\n#include \"QZParserSQL/dialect/fast_parser_tree.h\"\n"]
        parts += [self.tree_rule(name, rule) for name, _, rule in self.rules]
        parts += [self.entry(name, returned) for name, returned, _ in self.rules]
        return "\n".join(parts)


def fast_parser(text: str, name: str) -> str:
    return Parser(text, name).made()
