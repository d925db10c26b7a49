"""Random MS SQL source lists, made of joins."""

import random_texts
from mssql_from_oracle import KEYWORDS, LITERAL_WORDS, OPERATORS

NAMES = ['a', 'b', 'c', 'x', 'y', 't', 'Orders', 'T1', '_x', '[my col]', '[]', '[a]]b]', '"q n"', '"a""b"', '[a , b]',
         '[a \r \n b]', 'loop', 'ä']
UNFINISHED = ['[', '"', '[a', '"a']
NUMBERS = ['0', '42', '1.5', '1.5E3', '.5', '1.', '.5e-3', '2E+5', '1.E5', '3e7', '1.2.3', '1 . 5', '1Ex', '1.5E+', '.5e']
COMPARISONS = ['=', '<', '>', '<=', '>=', '<>', '!=', '*=', '=*']
ARITHMETIC = ['+', '-', '*', '/', '| |', '|', '&']
JOIN_TYPES = ['INNER', 'LEFT', 'RIGHT', 'FULL', 'LEFT OUTER', 'right outer', 'FULL OUTER', 'CROSS', 'INNER LOOP',
              'LEFT HASH', 'LEFT hash', 'FULL OUTER MERGE', 'INNER REMOTE', 'CROSS OUTER', '', '', '']


class Writer(random_texts.Writer):
    """`depth` bounds the nesting of joins."""

    VOCABULARY = (list(KEYWORDS) + LITERAL_WORDS + [text for text, _ in OPERATORS] * 2 + NAMES + UNFINISHED + NUMBERS +
                  ['(', ')', ',', '.', ';', '!', '$', "'", '@', '{', '%', '\r \n', '\r \n', '\n', 'JOIN', 'ON', 'AND',
                   'OR'])
    WORD_MARKS = '_.'

    def name(self):
        return self.rng.choice(self.rng.choices([NAMES[:8], NAMES, UNFINISHED], [75, 24, 1])[0])

    def line_end(self, share):
        return self.chance(share, lambda: self.rng.choice(['\r \n'] * 4 + ['\n', '\r', '\r \n \r \n']))

    def operand(self, depth):
        if depth > 0 and self.rng.random() < .4:
            return f'{self.operand(depth - 1)} {self.rng.choice(ARITHMETIC)} {self.operand(depth - 1)}'
        if self.rng.random() < .3:
            return self.rng.choice(NUMBERS)
        return ' . '.join(self.name() for _ in range(self.rng.choices([1, 2, 3, 4], [50, 40, 8, 2])[0]))

    def condition(self):
        compared = (f'{self.line_end(.05)} {self.operand(2)} {self.rng.choice(COMPARISONS)} {self.line_end(.05)} '
                    f'{self.operand(1)}')
        return (self.rng.choice(['{}', '{}', '{}', '( {} )', '( {}', '{} )', '( ( {} ) )']).format(compared) + ' ' +
                self.line_end(.15))

    def on(self):
        word = self.rng.choice(['ON', 'ON', 'ON', 'ON', 'ON', 'on', 'AND', ''])
        conjunction = self.rng.choice([' AND ', ' AND ', ' AND ', ' and ', ' ', ' OR '])
        return self.chance(.85, lambda: f'{self.line_end(.1)} {word} {self.some(self.condition, conjunction)}')

    def new_name(self):
        return self.rng.choice(['{}', '{}', '[ {} ]', '# {}', '## {}', '[ # {} ]', '{} ]']).format(self.name())

    def table(self):
        return (self.line_end(.1) + ' ' + self.chance(.2, lambda: self.name() + ' . ') + self.name() + ' ' +
                self.chance(.25, lambda: 'AS ' + self.new_name()))

    def side(self, depth):
        if depth <= 0 or self.rng.random() < .5:
            return self.chance(.96, self.table) + self.chance(.06, self.table)
        return self.line_end(.1) + ' ' + self.pick(
            lambda: f'( {self.join(depth)} )', lambda: f'( {self.join(depth)} )', lambda: self.join(depth),
            lambda: f'( {self.join(depth)}', lambda: f'( {self.table()} )')

    def join(self, depth):
        left, right = self.side(depth - 1), self.side(depth - 1)
        return f'{left} {self.line_end(.03)} {self.rng.choice(JOIN_TYPES)} JOIN {right} {self.on()}'

    def whole(self):
        return (self.join(self.rng.choice([0, 1, 1, 2, 2, 3])) + ' ' +
                self.chance(.1, lambda: self.rng.choice([', a', 'WHERE x = 1', '\n', '\r \n', ')', 'AND', 'c', '1'])))
