"""Writes a libFuzzer dictionary of the words and signs of a grammar: make_dictionary.py GRAMMAR.g DICTIONARY"""
import re
import sys


def words_of(grammar):
    words = set(re.findall(r"'((?:[^'\\\n]|\\.)+)'", grammar))
    for letters in re.findall(r"^[A-Za-z_0-9]+ *: *((?:[A-Z_0-9] )*[A-Z_0-9]) *;", grammar, re.MULTILINE):
        words.add(letters.replace(' ', ''))
    return sorted(words)


def quoted(word):
    plain = word.encode().decode('unicode_escape')
    return '"' + ''.join(c if c.isalnum() or c in ' _.' else f'\\x{ord(c):02x}' for c in plain if ord(c) < 256) + '"'


def main():
    source, target = sys.argv[1:]
    with open(source, encoding='utf-8') as file:
        words = words_of(file.read())
    if len(words) < 50:
        sys.exit(f'{source}: only {len(words)} words found')
    with open(target, 'w', encoding='ascii') as file:
        file.writelines(quoted(word) + '\n' for word in words if quoted(word) != '""')


main()
