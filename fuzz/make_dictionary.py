#!/usr/bin/env python3
"""Writes a libFuzzer dictionary: make_dictionary.py DICTIONARY SOURCE... It has the words and signs of grammars (.g), the
names in u"..." of C++ sources, and all lines of further dictionaries (.dict)."""
import re
import sys
from pathlib import Path


def words_of_grammar(grammar):
    words = set(re.findall(r"'((?:[^'\\\n]|\\.)+)'", grammar))
    for letters in re.findall(r"^[A-Za-z_0-9]+ *: *((?:[A-Z_0-9] )*[A-Z_0-9]) *;", grammar, re.MULTILINE):
        words.add(letters.replace(' ', ''))
    return words


def quoted(word):
    plain = word.encode().decode('unicode_escape')
    return '"' + ''.join(c if c.isalnum() or c in ' _.' else f'\\x{ord(c):02x}' for c in plain if ord(c) < 256) + '"'


def lines_of(source):
    text = source.read_text(encoding='utf-8')
    if source.suffix == '.dict':
        return {line for line in text.splitlines() if line.startswith('"')}
    words = words_of_grammar(text) if source.suffix == '.g' else set(re.findall(r'u"(\w+)"', text))
    if len(words) < (50 if source.suffix == '.g' else 3):
        sys.exit(f'{source}: only {len(words)} words found')
    return {quoted(word) for word in words} - {'""'}


def main():
    target, *sources = map(Path, sys.argv[1:])
    target.write_text(''.join(f'{line}\n' for line in sorted(set().union(*map(lines_of, sources)))), encoding='ascii')


main()
