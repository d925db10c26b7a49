"""A second walker for MS Access: from the tree that qzsql shows to the model that it should show.

Written from the rules of the walk alone, by plain recursion, and with nothing shared: each copy is a deep one. What is
shown as inherited is found by comparing, too.
"""

import copy
import re

OPERATORS = set('''ALIAS AMPERSAND AND AND_KEYWORD AND_KEYWORD2 AS ASTERISK BETWEEN_KEYWORD DIVIDE EQ GE GOJ GT IN_KEYWORD
IS_KEYWORD JOIN_KEYWORD LE LEFT_PAREN LIKE_KEYWORD LITERAL_AS LOJ L_T MINUS NOT_EQ NOT_KEYWORD ON_KEYWORD OR_KEYWORD
OR_KEYWORD2 PLUS UNION_KEYWORD'''.split())
FUNCTIONS = {'USER_FUNCTION', 'CONVERT_FUNCTION', 'FUNCTION', 'GROUP_FUNCTION', 'SEARCH_CONDITION'}
JOIN_WORDS = {'INNER_KEYWORD', 'RIGHT_KEYWORD', 'LEFT_KEYWORD', 'CROSS_KEYWORD', 'OUTER_KEYWORD'}
QUANTIFIERS = {'ALL_KEYWORD': 1, 'DISTINCT_KEYWORD': 2, 'DISTINCTROW_KEYWORD': 3}
CLAUSES = {'SELECT_LIST': 'Select', 'ORDER_BY': 'OrderBy', 'GROUP_BY': 'GroupBy', 'HAVING': 'Having'}
MS_ACCESS = 2
DEEPEST_EXPANSION = 16

ESCAPED = {'n': '\n', 'r': '\r', 't': '\t'}
NODE = re.compile(r"""\(?(?:('[^']*'|\w+)(?::"((?:[^"\\]|\\.)*)")?)|\)|\s""", re.S)


class Node:
    def __init__(self, kind, text):
        self.kind = kind
        self.text = text
        self.children = []

    def child(self, index):
        return self.children[index] if index < len(self.children) else None


def tree_of(sexpr):
    """The tree of (NODE child child ...)."""
    top = Node('', '')
    path = [top]
    for match in NODE.finditer(sexpr):
        name, text = match.groups()
        if match.group() == ')':
            path.pop()
        elif name:
            if text is None:
                text = {'ERROR': 'Tree Error Node', 'EOF': '<EOF>'}.get(name, name)
            else:
                text = re.sub(r'\\(.)', lambda escape: ESCAPED.get(escape[1], escape[1]), text, flags=re.S)
            node = Node(name, text)
            path[-1].children.append(node)
            if match.group().startswith('('):
                path.append(node)
    return top.children[0]


def text_read(sql):
    """What the build reads of a query's text."""
    sql = sql.replace('\r\n', ' ').rstrip()
    return re.sub(r'\[(\w+)\.(\w+)\]', r'[\1].[\2]', sql)


def without_backticks(text):
    return text.strip('`') if text.startswith('`') else text


def without_brackets(text):
    return text.strip('[]') if text.startswith('[') else text


def node_text(node):
    return ''.join(child.text for child in node.children).strip()


def item(kind=0, **members):
    return {'ItemKind': kind, **members, 'Children': []}


def clone(thing):
    """A deep copy of an item; a copied query loses its kind."""
    copied = copy.deepcopy(thing)
    waiting = [copied]
    while waiting:
        place = waiting.pop()
        waiting += place['Children']
        if 'Query' in place:
            place['Query'].numbers.pop('QueryKind', None)
            waiting += place['Query'].items()
    return copied


def is_field(thing):
    return thing.get('Class') == 'Field'


class Query:
    def __init__(self, nested):
        self.numbers = {'DataType': MS_ACCESS, 'QueryKind': MS_ACCESS} if nested else {}
        self.inherited = set()
        self.lists = {name: [] for name in ('Select', 'From', 'GroupBy', 'Having', 'OrderBy', 'Union')}
        self.where = None
        self.aliases = {}
        self.sources = {}
        self.fields = {}

    def items(self):
        """All items but for those below others."""
        return (sum(self.lists.values(), []) + ([self.where] if self.where else []) +
                [alias['Expression'] for alias in self.aliases.values()])


class State:
    def __init__(self, tree, query, functions):
        self.tree = tree
        self.query = query
        self.functions = functions
        self.collecting = False

    def is_alias(self, name):
        return name.lower() in (key.lower() for key in self.query.aliases)

    # ------------------------------------------------------------------------------------------------ the scans

    def collect_aliases(self):
        for child in self.tree.children:
            self.scan_aliases(child)

    def scan_aliases(self, node):
        if node.kind in ('LITERAL_AS', 'ALIAS') and node.children:
            name = node_text(node.children[-1])
            key = without_backticks(name).lower()
            if key not in self.query.aliases:
                self.collecting = True
                expression = item()
                self.walk_children(expression['Children'], node)
                self.query.aliases[key] = {'SrcName': name, 'Name': name, 'Expression': expression}
                self.collecting = False
        for child in node.children:
            self.scan_aliases(child)

    def collect_sources(self, node):
        for child in node.children:
            if child.kind == 'TABLE_NAME':
                name = without_backticks(node_text(child))
                if not self.is_alias(name):
                    self.query.sources[name] = name
            self.collect_sources(child)

    # ---------------------------------------------------------------------------------------------- the clauses

    def walk_clause(self, node):
        query = self.query
        if node.kind == 'PREDICATE' and node.children:
            self.walk_predicate(node.children[0])
        if node.kind in CLAUSES:
            target = query.lists[CLAUSES[node.kind]] = []
            for child in node.children:
                self.add_clause_item(child, target)
        if node.kind == 'FROM_DEF_':
            query.lists['From'] = []
            for child in node.children:
                self.add_from_item(child, query.lists['From'], node)
        if node.kind == 'WHERE_CONDITION':
            query.where = item()
            for child in node.children:
                self.add_clause_item(child, query.where['Children'])
        if node.kind == 'UNION':
            query.lists['Union'] = []
            self.build_union(node, query.lists['Union'])

    def walk_predicate(self, node):
        self.query.numbers['SelectQuantifier'] = QUANTIFIERS.get(node.kind, 0)

    def add_clause_item(self, node, target):
        kind = node.kind
        if kind in OPERATORS:
            self.build_operator(node, target, None)
        elif kind in ('ASC_KEYWORD', 'DESC_KEYWORD'):
            target.append(item(Text=kind.removesuffix('_KEYWORD')))
        elif kind in ('COLUMN_SPECIFICATION', 'ASTERISK_'):
            self.build_field(node, target)
        elif kind in ('FUNCTION', 'SEARCH_CONDITION', 'USER_FUNCTION'):
            self.build_function(node, target)
        elif kind == 'SQL_LITERAL':
            self.build_literal(node.child(0), target)
        elif kind != 'TABLE_NAME' and node.children:
            self.add_clause_item(node.children[0], target)

    def add_from_item(self, node, target, parent):
        if node.kind in OPERATORS:
            self.build_operator(node, target, parent)
        elif node.kind == 'JOIN_DEF':
            joins = item(4, FuncName='DEF_JOIN', IsOperator=1)
            target.append(joins)
            for child in node.children:
                self.add_from_item(child, joins['Children'], parent)
        elif node.kind == 'SELECT_QUERY':
            target.append(item(FuncName='select'))
        elif node.kind == 'TABLE_SPECIFICATION':
            self.build_table_field(node, target)

    # ------------------------------------------------------------------------------------------------- the walk

    def build_operator(self, node, target, parent):
        operator = item(4, FuncName=node.text.lstrip(), IsOperator=1, TokenType=node.kind)
        if operator['FuncName'].upper() == 'JOIN' and not (node.children and node.children[0].kind == 'JOIN_PREFIX'):
            operator['Children'].append(item(FuncName=' '))
        if parent and parent.kind == 'NESTED_JOIN':
            operator['IsNested'] = 1
        self.walk_children(operator['Children'], node)
        target.append(operator)

    def walk_children(self, target, node):
        first = node.child(0)
        if node.kind == 'FUNC_PARAM' and first and first.kind == 'LEFT_PAREN':
            if first.children:
                node = first
            elif len(node.children) > 1:
                node = node.children[1]
        for child in node.children:
            if child.kind == 'RIGHT_PAREN':
                break
            self.walk_node(child, target, node)

    def walk_node(self, node, target, parent):
        kind = node.kind
        if kind in OPERATORS:
            self.build_operator(node, target, parent)
        elif kind == 'TABLE_SPECIFICATION':
            if node.children:
                self.build_table_field(node.children[0], target)
        elif kind in FUNCTIONS:
            self.build_function(node, target)
        elif kind in ('STYLE', 'DATE_PART', 'SQL_LITERAL'):
            self.build_literal(node.child(0), target)
        elif kind == 'DATATYPE':
            self.build_literal(node, target)
        elif kind == 'COLUMN_SPECIFICATION':
            self.build_field(node, target)
        elif kind == 'IDENTIFICATOR':
            target.append(item(Text=node_text(node)))
        elif kind == 'JOIN_DEF':
            self.add_from_item(node, target, parent)
        elif kind == 'JOIN_POSTFIX':
            for child in node.children:
                if child.kind == 'JOIN_DEF':
                    blank = item(FuncName=' ', IsOperator=1)
                    self.add_from_item(child, blank['Children'], node)
                    target.append(blank)
                else:
                    self.walk_node(child, target, node)
        elif kind == 'JOIN_PREFIX':
            blank = item(FuncName=' ', IsOperator=1)
            self.walk_children(blank['Children'], node)
            target.append(blank)
        elif kind == 'JOIN_TYPE':
            self.build_join_word(node.child(0), target)
        elif kind == 'NEW_NAME':
            target.append(item(1, Text=node_text(node)))
        elif kind == 'SELECT_QUERY':
            self.build_sub_query(node, target)
        elif node.children:
            self.walk_node(node.children[0], target, node)

    def build_function(self, node, target):
        name = node.child(0)
        if name is None:
            return
        operands = node.child(1)
        function = item(4, FuncName=without_backticks(name.text).lstrip(), TokenType=name.kind,
                        IsOperator=int(name.kind in OPERATORS))
        if node.kind == 'USER_FUNCTION':
            function['ItemKind'] = 7
            self.functions[function['FuncName']] = len(operands.children) if operands else 0
        if name.kind == 'BETWEEN_KEYWORD' or node.kind == 'SEARCH_CONDITION':
            operands = name
        if name.kind == 'LIKE_KEYWORD':
            operands = name
            function['IsOperator'] = 1
        if operands:
            self.walk_children(function['Children'], operands)
        target.append(function)

    @staticmethod
    def build_literal(node, target):
        if node is None:
            return
        texts = [child.text for child in node.children]
        if node.kind == 'DATATYPE':
            literal = item(1, Text=''.join(texts))
        elif node.kind == 'DATE':
            literal = item(3, Text=''.join(texts) if texts else ' ')
        elif node.kind == 'NUMBER_LITERAL':
            literal = item(1, Text=''.join(texts[:2]))
        elif node.kind == 'SQL_STRING':
            literal = item(2, Text=''.join(texts) if texts else ' ')
        else:
            literal = item(Text=without_backticks(node.text))
        target.append(literal)

    @staticmethod
    def build_join_word(node, target):
        if node is None:
            return
        word = item(int(node.kind == 'NUMBER_LITERAL' or node.kind in JOIN_WORDS))
        if node.kind == 'NUMBER_LITERAL':
            node = node.child(0)
        word['Text'] = node.text if node else ''
        target.append(word)

    @staticmethod
    def build_table_field(node, target):
        first = node.child(0)
        named = first if first and first.kind == 'TABLE_NAME' else node
        target.append(item(5, Class='Field', TableName=without_backticks(node_text(named))))

    # ---------------------------------------------------------------------------------------------- the columns

    def build_field(self, node, target):
        field = item(5, Class='Field')
        table = column = ''
        has_query_name = False
        for child in node.children:
            if child.kind == 'QUERY_NAME' and not has_query_name:
                has_query_name = True
                name = without_brackets(node_text(child))
                table = self.take_qualifier(field, name) or table
            elif child.kind == 'TABLE_NAME':
                table = self.take_qualifier(field, without_backticks(node_text(child))) or table
            elif child.kind == 'COLUMN_NAME' and node_text(child) == '*':
                column = field['FieldName'] = '*'
            elif child.kind == 'COLUMN_NAME':
                column = self.take_column(field, without_backticks(node_text(child)), column)
        if not self.collecting:
            if not table and column:
                table = field.get('Text', '')
            if table or column:
                self.query.fields[f'{table}{column}_0'] = {'TableName': table, 'FieldName': column}
        target.append(field)

    def take_qualifier(self, field, name):
        """What the name adds to the record: nothing for an alias."""
        if self.is_alias(name):
            field['Text'] = field['TableAlias'] = name
            return ''
        field['TableName'] = name
        return name

    def take_column(self, field, name, column):
        if name.find('.') > 0:
            part, rest = name.split('.', 1)
            name = rest.lstrip('.')
            column = self.take_qualifier(field, part) or column
        if not self.is_alias(name) or field.get('TableName') or field.get('TableAlias'):
            field['FieldName'] = name
            return name
        field['FieldAlias'] = name
        field['ItemKind'] = 10
        for key, alias in self.query.aliases.items():
            children = alias['Expression']['Children']
            if key.lower() != name.lower() or not children:
                continue
            self.fix_alias_field(children[0], (name.lower(),))
            first = children[0]
            if is_field(first) and self.is_alias(first.get('TableName', '')):
                first['ItemKind'] = 10
                first['TableAlias'] = first.pop('TableName')
            field['Children'].append(clone(first))
        return column

    def fix_alias_field(self, thing, within):
        """`within` are the aliases in whose expansion the item stands."""
        if thing['ItemKind'] == 10 and thing.get('FieldAlias', '').lower() in within:
            thing['Children'] = []
        name = thing.get('FieldName', '') if is_field(thing) else ''
        if name and self.is_alias(name) and not thing.get('TableName') and not thing.get('TableAlias'):
            if name.lower() not in within and len(within) < DEEPEST_EXPANSION:
                thing['FieldAlias'] = thing.pop('FieldName')
                thing['ItemKind'] = 10
                for key, alias in self.query.aliases.items():
                    if key.lower() == name.lower() and alias['Expression']['Children']:
                        thing['Children'].append(clone(alias['Expression']['Children'][0]))
        if thing['ItemKind'] == 10:
            within = within + (thing.get('FieldAlias', '').lower(),)
        for child in thing['Children']:
            self.fix_alias_field(child, within)

    # --------------------------------------------------------------------------------------- the nested queries

    def build_sub_query(self, node, target):
        query = Query(nested=True)
        query.aliases = {key: {**alias, 'Expression': clone(alias['Expression'])}
                         for key, alias in self.query.aliases.items()}
        query.inherited = set(query.aliases)
        query.sources = dict(self.query.sources)
        query.fields = copy.deepcopy(self.query.fields)
        state = State(node, query, self.functions)
        for child in node.children:
            state.walk_clause(child)
        target.append(item(6, Class='SubQuery', FuncName='SUB_QUERY', Query=query))

    def build_union(self, node, target):
        first = node.child(0)
        if first is None:
            return
        if first.kind == 'ALL_KEYWORD':
            self.walk_predicate(node)
            first = node.child(1)
        while first and first.kind != 'SELECT_QUERY':
            first = first.child(0)
        query = Query(nested=True)
        if first:
            state = State(first, query, self.functions)
            state.collect_aliases()
            state.collect_sources(first)
            for child in first.children:
                state.walk_clause(child)
        target.append(item(8, Class='Union', FuncName='UNION', Query=query))


# ------------------------------------------------------------------------------------------------- how it is shown

def without_defaults(members):
    return {key: value for key, value in members.items() if value not in (0, '', None) or key == 'ItemKind'}


def shown_items(items, around):
    return [shown_item(thing, around) for thing in items]


def shown_item(thing, around):
    members = {key: value for key, value in thing.items() if key not in ('Children', 'Query')}
    shown = without_defaults(members)
    if thing['Children']:
        shown['Children'] = shown_items(thing['Children'], around)
    if 'Query' in thing:
        shown['Query'] = shown_query(thing['Query'], around)
    return shown


def shown_alias(key, alias, query, around):
    """One that came from the query around is told so where nobody has changed it."""
    if around and key in query.inherited:
        own, outer = (clone(one.aliases[key]['Expression']) for one in (query, around[-1]))
        if shown_item(own, []) == shown_item(outer, []):
            return {'Inherited': 1}
    return {**without_defaults({'SrcName': alias['SrcName'], 'Name': alias['Name']}),
            'Expression': shown_item(alias['Expression'], around + [query])}


def shown_query(query, around):
    shown = without_defaults(query.numbers)
    inner = around + [query]
    for name, items in query.lists.items():
        if items:
            shown[name] = shown_items(items, inner)
    if query.where:
        shown['Where'] = shown_item(query.where, inner)
    if query.aliases:
        shown['Aliases'] = {key: shown_alias(key, alias, query, around) for key, alias in query.aliases.items()}
    if query.sources:
        shown['Sources'] = query.sources
    if query.fields:
        shown['Fields'] = {key: without_defaults(record) for key, record in query.fields.items()}
    return shown


def model(sql, sexpr):
    """The model of a text whose rewritten text has this tree."""
    node = tree_of(sexpr)
    query = Query(nested=False)
    functions = {}
    while node and node.kind != 'SELECT_QUERY':
        node = node.child(0)
    if node:
        state = State(node, query, functions)
        state.collect_aliases()
        state.collect_sources(node)
        for child in node.children:
            state.walk_clause(child)
    shown = {**without_defaults({'SQL': sql.replace('\r\n', ' ').rstrip()}), **shown_query(query, [])}
    if functions:
        shown['UserFunctions'] = functions
    return shown
