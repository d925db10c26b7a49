#!/usr/bin/env python3
"""Random query texts, good and broken: `texts(dialect, count, seed)` or, as a program, JSON lines of {"id", "sql"}.

A text is made along the dialect's clauses and then, in about half the cases, damaged in one to three places.
"""

import argparse
import importlib
import json
import random


class Writer:
    """What the writers of all dialects have. A dialect's own says in `whole` how a text is made, of tokens with blanks
    between."""

    VOCABULARY = []  # what damage puts in
    WORD_MARKS = '_$'  # what belongs to a word beside letters and digits
    BLANKS = [' ']

    def __init__(self, rng):
        self.rng = rng

    def whole(self):
        raise NotImplementedError

    def pick(self, *makers):
        return self.rng.choice(makers)()

    def chance(self, share, maker):
        return maker() if self.rng.random() < share else ''

    def some(self, maker, separator, most=3):
        count = min(self.rng.randint(1, most), self.rng.randint(1, most))
        return separator.join(maker() for _ in range(count))

    def damage(self, tokens):
        """The tokens with one of them dropped, doubled, swapped, replaced or a new one put before it."""
        at = self.rng.randrange(len(tokens))
        kind = self.rng.randrange(6)
        if kind == 0:
            return tokens[:at] + tokens[at + 1:] or tokens
        if kind == 1:
            return tokens[:at] + [tokens[at]] + tokens[at:]
        if kind == 2:
            return tokens[:at] + tokens[at:at + 2][::-1] + tokens[at + 2:]
        if kind == 3:
            return tokens[:at] + [self.rng.choice(self.VOCABULARY)] + tokens[at + 1:]
        if kind == 4:
            return tokens[:at + 1] if at > 1 else tokens
        return tokens[:at] + [self.rng.choice(self.VOCABULARY)] + tokens[at:]

    def spaced(self, tokens):
        """The tokens as one text; a blank is left out at times where it parts no words."""
        text = ''
        for token in tokens:
            words_meet = text and self.in_word(text[-1]) and self.in_word(token[0])
            text += (self.rng.choice(self.BLANKS) if words_meet or self.rng.random() < .7 else '') + token
        return text.strip(' ')

    def in_word(self, character):
        return character.isalnum() or character in self.WORD_MARKS

    def text(self):
        """One text of usually 3 to 40 tokens."""
        while True:
            tokens = [token for token in self.whole().split(' ') if token]
            if len(tokens) <= 40 or self.rng.random() < .03:
                break
        if self.rng.random() < .55:
            for _ in range(self.rng.choice([1, 1, 1, 2, 3])):
                tokens = self.damage(tokens)
        if self.rng.random() < .15:
            tokens = [change_case(self.rng, token) if self.rng.random() < .3 else token for token in tokens]
        return self.spaced(tokens)


def change_case(rng, token):
    return rng.choice([token.lower, token.upper, token.title])() if token.isascii() else token


def writer_of(dialect):
    return importlib.import_module(dialect.replace('-', '_') + '_texts').Writer


def texts(dialect, count, seed):
    writer = writer_of(dialect)(random.Random(seed))
    for _ in range(count):
        yield writer.text()


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument('--dialect', default='access')
    options.add_argument('--count', type=int, default=100)
    options.add_argument('--seed', type=int, default=1)
    chosen = options.parse_args()
    for number, sql in enumerate(texts(chosen.dialect, chosen.count, chosen.seed)):
        print(json.dumps({'id': number, 'sql': sql}))


if __name__ == '__main__':
    main()
