#!/usr/bin/env python3
"""Texts of a dialect for the comparison of two builds, each ended by NUL: all of its corpus and of its golden cases,
then COUNT made ones, half of them by the dialect's writer of random texts, half by mutation of the others.

    texts.py DIALECT COUNT SEED
"""

import random
import re
import sys
from pathlib import Path

TESTS = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TESTS / "oracle"))
import random_texts  # noqa: E402

TOKEN = re.compile(r"\w+|\s+|[^\w\s]")
LONGEST = 2000


def golden_texts(dialect: str) -> list[str]:
    texts = []
    for path in sorted((TESTS / "golden" / dialect).glob("*.txt")):
        for case in re.split(r"^==$", path.read_text(), flags=re.M):
            lines = [line for line in case.split("\n--\n")[0].splitlines() if line and not line.startswith("#")]
            texts += ["\n".join(lines[1:]), "\n".join(lines)]
    return texts


def corpus_texts(dialect: str) -> list[str]:
    return [path.read_text() for path in sorted((TESTS / "corpus" / dialect).glob("*.sql"))]


def mutated(rng: random.Random, texts: list[str], vocabulary: list[str]) -> str:
    tokens = TOKEN.findall(rng.choice(texts))
    other = TOKEN.findall(rng.choice(texts))
    for _ in range(rng.choice([1, 1, 2, 3, 5])):
        at, length = rng.randrange(len(tokens) + 1), rng.choice([0, 1, 1, 2, 8])
        start = rng.randrange(len(other) + 1)
        new = [other[start:start + rng.choice([1, 2, 8, 30])], [rng.choice(vocabulary)], [chr(rng.randrange(1, 400))],
               tokens[at:at + length] * 2, []]
        tokens[at:at + length] = rng.choice(new)
    return "".join(tokens)


def written(dialect: str, count: int, seed: int) -> list[str]:
    try:
        return list(random_texts.texts(dialect, count, seed))
    except ModuleNotFoundError:
        return []


def main() -> None:
    dialect, count, seed = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
    rng = random.Random(seed)
    own = [text for text in corpus_texts(dialect) + golden_texts(dialect) if text]
    short = [text for text in own if len(text) <= LONGEST]
    vocabulary = sorted({token for text in own for token in TOKEN.findall(text)})
    texts = own + written(dialect, count // 2, seed)
    while len(texts) < len(own) + count:
        texts.append(mutated(rng, short, vocabulary))
    sys.stdout.buffer.write(b"".join(text.replace("\0", " ").encode() + b"\0" for text in texts))


main()
