// MS Access: the lexer and parser of stored queries.
//
// Two layers of words: a word in quotes is a token in the case shown and wins a tie, a keyword rule takes any case. The
// parser decides by one token and, where several alternatives remain, by guesses in the order written. A clause whose
// guess fails is no error: it trails at the root with all that follows it. Rules called node_x wrap the rule x in a
// node; a rule marked "guessed only" is never part of a tree.
grammar MSAccessSQL_v3;

options {
    language = C;
    output = AST;
    ASTLabelType = pANTLR3_BASE_TREE;
    backtrack = true;
    memoize = true;
    k = 1;
}

tokens {
    // Nodes made by the grammar.
    ALIAS; AND; AS; ASTERISK_; BY; COLUMN_NAME; COLUMN_SPECIFICATION; COMPUTE; CONVERT_FUNCTION; DATATYPE;
    DATE_FUNCTION; DATE_PART; DB_NAME; FOR; FROM_DEF_; FUNCTION; FUNCTION_NAME; FUNCTION_SPECIFICATION; FUNC_PARAM;
    GROUP_BY; GROUP_FUNCTION; HAVING; IN_; JOIN_CONDITION; JOIN_DEF; JOIN_POSTFIX; JOIN_PREFIX; JOIN_TYPE; LIMIT;
    LITERALAS; NESTED_JOIN; NESTED_JOIN_POSTFIX; NESTED_JOIN_PREFIX; NESTED_JOIN_SERCH; NEW_NAME; NUMBER_LITERAL;
    NUMBER_literal; OPTION; ORDER_BY; PARAMETER; PREDICATE; PROCEDURE; PROCNAME; QUERY_NAME; SEARCH_CONDITION;
    SELECT_LIST; SELECT_QUERY; SQL_LITERAL; SQL_STRING; STYLE; TABLE_HINT; TABLE_NAME; TABLE_SPECIFICATION; UNION;
    USER_FUNCTION; WHERE_CONDITION;

    // Words and signs in one case.
    SIGN_HASH = '#';
    SIGN_COLON = ':';
    SIGN_AT = '@';
    WORD_AUTO = 'AUTO';
    WORD_BROWSE = 'BROWSE';
    WORD_BYNATY_base64 = 'BYNATY base64';
    WORD_CONVERT = 'CONVERT';
    WORD_ELEMENTS = 'ELEMENTS';
    WORD_EXPAND_VIEWS = 'EXPAND VIEWS';
    WORD_EXPLICIT = 'EXPLICIT';
    WORD_FAST = 'FAST';
    WORD_FASTFIRSTROW = 'FASTFIRSTROW';
    WORD_FORCE = 'FORCE';
    WORD_HASH = 'HASH';
    WORD_HOLDLOCK = 'HOLDLOCK';
    WORD_IDENTIFYCOL = 'IDENTIFYCOL';
    WORD_INDEX = 'INDEX';
    WORD_INTO = 'INTO';
    WORD_KEEP = 'KEEP';
    WORD_KEEPFIXED = 'KEEPFIXED';
    WORD_LOOP = 'LOOP';
    WORD_MAXDOP = 'MAXDOP';
    WORD_MERGE = 'MERGE';
    WORD_NOLOCK = 'NOLOCK';
    WORD_PAGLOCK = 'PAGLOCK';
    WORD_PLAN = 'PLAN';
    WORD_RAW = 'RAW';
    WORD_READCOMMITTED = 'READCOMMITTED';
    WORD_READPAST = 'READPAST';
    WORD_READUNCOMMITTED = 'READUNCOMMITTED';
    WORD_REMOTE = 'REMOTE';
    WORD_REPEATABLEREAD = 'REPEATABLEREAD';
    WORD_ROBUST = 'ROBUST';
    WORD_ROWGUIDCOL = 'ROWGUIDCOL';
    WORD_ROWLOCK = 'ROWLOCK';
    WORD_SERIALIZABLE = 'SERIALIZABLE';
    WORD_TABLOCK = 'TABLOCK';
    WORD_TABLOCKX = 'TABLOCKX';
    WORD_UPDLOCK = 'UPDLOCK';
    WORD_WITH = 'WITH';
    WORD_XLOCK = 'XLOCK';
    WORD_XML = 'XML';
    WORD_XMLDATA = 'XMLDATA';
    WORD_count = 'count';
    WORD_d = 'd';
    WORD_day = 'day';
    WORD_dd = 'dd';
    WORD_dw = 'dw';
    WORD_fn = 'fn';
    WORD_m = 'm';
    WORD_mi = 'mi';
    WORD_mm = 'mm';
    WORD_month = 'month';
    WORD_n = 'n';
    WORD_week = 'week';
    WORD_wk = 'wk';
    WORD_ww = 'ww';
    WORD_year = 'year';
    WORD_yy = 'yy';
    WORD_yyyy = 'yyyy';
}


// ---------------------------------------------------------------- statement

// The entry rule. Whatever stands behind the query trails at the root, EOF last: SELECT a b
sql_root
    : all_sql_query .* EOF
    ;

all_sql_query
    : node_sql_query
    ;

node_sql_query
    : sql_query -> ^(SELECT_QUERY sql_query)
    ;

node_union
    : union_ -> ^(UNION union_)
    ;

// UNION ALL SELECT b FROM u
union_
    : UNION_KEYWORD! ALL_KEYWORD? node_sql_query
    ;

// A clause is entered only where its guess succeeds, else it trails with all that follows it.
// FROM needs one source that is really there; beside such a one an empty source is taken: FROM t,
sql_query
    : SELECT_KEYWORD! node_predicate? node_select_list
      ((FROM_KEYWORD COMMA* from_source)=> from_list)?
      node_where_condition? node_group_by? node_having? node_order_by? node_compute? node_for? node_option? node_union?
    ;

node_predicate
    : predicate -> ^(PREDICATE predicate)
    ;

// DISTINCTROW TOP 5 PERCENT
predicate
    : (ALL_KEYWORD | DISTINCT_KEYWORD | DISTINCTROW_KEYWORD) top_expression?
    | top_expression
    ;

// TOP (5) PERCENT
top_expression
    : TOP_KEYWORD^ LEFT_PAREN!? node_number RIGHT_PAREN!? PERCENT_KEYWORD? WITHTIES_KEYWORD?
    ;

node_select_list
    : select_list_ -> ^(SELECT_LIST select_list_)
    ;

// a, b AS x, Count(*)
select_list_
    : select_list (COMMA! select_list)*
    ;

// One item of a select list, of ORDER BY or of IIF. An alias needs AS and becomes the root of its item: a + 1 AS x
select_list
    : ( (logical_factor logical_operator)=> logical_expression
      | (LEFT_PAREN logical_factor logical_operator)=> LEFT_PAREN logical_expression RIGHT_PAREN
      | (LEFT_PAREN expression NOT_KEYWORD? BETWEEN_KEYWORD)=> between_expression_whis_paren
      | (expression NOT_KEYWORD? BETWEEN_KEYWORD)=> between_expression
      | (NOT_KEYWORD? node_search_condition)=> NOT_KEYWORD? node_search_condition
      | (LEFT_PAREN? NOT_KEYWORD? node_search_condition RIGHT_PAREN?)=>
        LEFT_PAREN? NOT_KEYWORD? node_search_condition RIGHT_PAREN?
      | (variety_select)=> variety_select
      | (LEFT_PAREN variety_select RIGHT_PAREN)=> LEFT_PAREN variety_select RIGHT_PAREN
      )
      (LITERAL_AS^ node_new_name)?
    ;

node_sql_sub_query
    : sql_sub_query -> ^(SELECT_QUERY sql_sub_query)
    ;

// (SELECT a FROM t)
sql_sub_query
    : LEFT_PAREN! all_sql_query RIGHT_PAREN!
    ;

// --------------------------------------------------------------------- FROM

// FROM t, u AS x
from_list
    : FROM_KEYWORD! node_from_list
    ;

node_from_list
    : from_list_ -> ^(FROM_DEF_ from_list_)
    ;

from_list_
    : all_table_source_ (COMMA! all_table_source_)*
    ;

// A join first, then a name with or without an alias, then a derived table; before any other token the source is empty.
all_table_source_
    : table_source_
    | node_t_n
    | node_table_specification
    | table_source?
    | column_specification
    | node_sq_alias
    | all_sql_query
    ;

// Guessed only: a source that is not empty.
from_source
    : table_source_
    | node_t_n
    | table_source
    | node_sq_alias
    ;

table_source_
    : node_joined_table_
    ;

node_joined_table_
    : big_joined_table -> ^(JOIN_DEF big_joined_table)
    ;

// (a INNER JOIN b ON x) INNER JOIN c ON y
big_joined_table
    : joined_table ((nestedJoin)=> nestedJoin)?
    ;

joined_table
    : joined_table_
    ;

// a LEFT JOIN b ON x; or such a join in parentheses
joined_table_
    : (node_join_prefix JOIN_KEYWORD node_join_postfix_)=> node_join_prefix JOIN_KEYWORD^ node_join_postfix_
    | (LEFT_PAREN big_joined_table)=> LEFT_PAREN^ big_joined_table RIGHT_PAREN
    ;

node_join_prefix
    : join_prefix -> ^(JOIN_PREFIX join_prefix)
    ;

// a LEFT OUTER: the tables and join words before JOIN; none at all where the table stands in the parentheses before
join_prefix
    : ( (node_join_type)=> node_join_type
      | (node_table_specification join_type)=> node_table_specification
      | (node_table_specification JOIN_KEYWORD)=> node_table_specification
      | (node_t_n)=> node_t_n
      | (node_sq_alias)=> node_sq_alias
      )*
      node_join_type?
    ;

node_join_postfix_
    : node_big_postfix -> ^(JOIN_POSTFIX node_big_postfix)
    ;

// b ON x, where b may be a join itself: a INNER JOIN b INNER JOIN c ON y ON x
node_big_postfix
    : ((node_joined_table_)=> node_joined_table_)?
      ((postfix_table)=> postfix_table)?
      ((join_postfix_)=> join_postfix_)?
      ((on_search_contition)=> on_search_contition)?
    ;

join_postfix_
    : postfix_table ((node_joined_table_)=> node_joined_table_)?
    ;

// ON a.x = b.x AND a.y = b.y: each operator becomes the root over all that stands before it, ON included
on_search_contition
    : ON_KEYWORD^ node_search_condition (logical_operator^ node_search_condition)*
    ;

node_and_condition
    : and_condition -> ^(AND and_condition)
    ;

// AND a = 1
and_condition
    : AND_KEYWORD!? node_search_condition
    ;

// What JOIN joins: b, b AS x, (SELECT ...) AS x, (c INNER JOIN d ON z
postfix_table
    : ( (nestedJoin)=> nestedJoin
      | (node_sq_alias)=> node_sq_alias
      | (node_t_n)=> node_t_n
      | (node_table_specification)=> node_table_specification
      | all_sql_query
      )
      ((node_table_hint)=> node_table_hint)?
    ;

// The closing parenthesis is left to the join around it: a INNER JOIN (b INNER JOIN c ON y) ON x
nestedJoin
    : (LEFT_PAREN node_joined_table_)=> LEFT_PAREN node_joined_table_
    | node_joined_table_
    ;

node_join_type
    : join_type -> ^(JOIN_TYPE join_type)
    ;

// NATURAL LEFT OUTER
join_type
    : CROSS_KEYWORD
    | INNER_KEYWORD
    | LEFT_KEYWORD OUTER_KEYWORD?
    | NATURAL_KEYWORD LEFT_KEYWORD OUTER_KEYWORD?
    | RIGHT_KEYWORD OUTER_KEYWORD?
    | NATURAL_KEYWORD RIGHT_KEYWORD OUTER_KEYWORD?
    ;

join_hint
    : 'HASH'
    | 'LOOP'
    | 'MERGE'
    | 'REMOTE'
    ;

// t WITH (...), (SELECT a FROM t) AS x
table_source
    : ((node_t_n)=> node_t_n | node_table_specification)
      ('WITH' (LEFT_PAREN table_hint (COMMA! table_hint)* RIGHT_PAREN!)?)?
    | node_d_t (select_list (COMMA! select_list)*)?
    ;

// ------------------------------------------------------------------ clauses

node_where_condition
    : where_condition -> ^(WHERE_CONDITION where_condition)
    ;

// WHERE a = 1 AND NOT b = 2
where_condition
    : WHERE_KEYWORD! logical_expression
    ;

node_group_by
    : group_by -> ^(GROUP_BY group_by)
    ;

// GROUP BY a, b WITH CUBE
group_by
    : GROUP_KEYWORD! BY_KEYWORD! ALL_KEYWORD? logical_expression (COMMA! logical_expression)*
      (WITH_KEYWORD (CUBE_KEYWORD | ROLLUP_KEYWORD))?
    ;

node_order_by
    : order_by -> ^(ORDER_BY order_by)
    ;

// ORDER BY a DESC, b
order_by
    : ORDER_KEYWORD! BY_KEYWORD! select_list (ASC_KEYWORD | DESC_KEYWORD)?
      (COMMA! select_list (ASC_KEYWORD | DESC_KEYWORD)?)*
    ;

node_having
    : having -> ^(HAVING having)
    ;

// HAVING Count(*) > 1
having
    : HAVING_KEYWORD! logical_expression
    ;

node_compute
    : compute -> ^(COMPUTE compute)
    ;

// COMPUTE Sum(a), Max(b) BY c
compute
    : COMPUTE_KEYWORD! all_node_function (COMMA! all_node_function)* node_by?
    ;

node_by
    : by -> ^(BY by)
    ;

by
    : BY_KEYWORD! node_column_specification (COMMA! node_column_specification)*
    ;

node_for
    : for_ -> ^(FOR for_)
    ;

// FOR XML AUTO.ELEMENTS: the separator is a dot
for_
    : FOR_KEYWORD!
      ( 'BROWSE'
      | 'XML' ('RAW' | 'AUTO' | 'EXPLICIT') (DOT 'XMLDATA')? (DOT 'ELEMENTS')? (DOT 'BYNATY base64')?
      )
    ;

node_option
    : option -> ^(OPTION option)
    ;

// OPTION FAST 10, KEEP PLAN: no parentheses
option
    : OPTION_KEYWORD! query_hint (COMMA! query_hint)*
    ;

query_hint
    : (ORDER_KEYWORD | 'HASH') GROUP_KEYWORD
    | (CONCAT | 'HASH' | 'MERGE') UNION_KEYWORD
    | 'FAST' node_number
    | 'FORCE' ORDER_KEYWORD
    | 'MAXDOP' node_number
    | ('KEEP' | 'KEEPFIXED' | 'ROBUST') 'PLAN'
    | 'EXPAND VIEWS'
    ;

// ----------------------------------------------------------- tables, columns

node_table_specification
    : table_specification -> ^(TABLE_SPECIFICATION table_specification)
    ;

// db.t
table_specification
    : (node_db_name DOT node_table_name)=> node_db_name DOT! node_table_name
    | node_table_name
    ;

node_column_specification
    : column_specification_pre -> ^(COLUMN_SPECIFICATION column_specification_pre)
    ;

column_specification_pre
    : (LEFT_COL_PAREN node_table_name DOT node_column_name RIGHT_COL_PAREN)=>
      LEFT_COL_PAREN! column_specification RIGHT_COL_PAREN!
    | column_specification
    ;

// t.a and t!a give the same tree
column_specification
    : query_list_specification
    | node_db_name DOT! node_table_name DOT! node_column_name
    | (node_db_name DOT node_table_name ASTERISK (COMMA | FROM_KEYWORD))=>
      node_db_name DOT! node_table_name node_asterisk
    | node_table_name (DOT! | EXCLAMATION_MARK!) node_column_name
    | node_column_name
    ;

// a.b.t.c, a.b.c.t.d
query_list_specification
    : node_db_name DOT! node_db_name DOT! node_table_name DOT! node_column_name
    | node_db_name DOT! node_db_name DOT! node_db_name DOT! node_table_name DOT! node_column_name
    ;

node_d_t
    : d_t -> ^(ALIAS d_t)
    ;

// (SELECT a FROM t) AS x
d_t
    : derived_table (LITERAL_AS! node_new_name)?
    ;

node_t_n
    : t_n -> ^(ALIAS t_n)
    ;

// t AS x
t_n
    : node_table_specification (LITERAL_AS! node_new_name)?
    ;

node_fff
    : fff -> ^(ALIAS fff)
    ;

fff
    : ( logical_expression
      | LEFT_PAREN logical_expression RIGHT_PAREN
      | variety_select
      | LEFT_PAREN variety_select RIGHT_PAREN
      )
      (LITERAL_AS! node_new_name)?
    ;

node_alias
    : alias -> ^(ALIAS alias)
    ;

alias
    : LITERAL_AS! node_new_name
    ;

node_sq_alias
    : sq_alias -> ^(ALIAS sq_alias)
    ;

// (SELECT a FROM t) AS x before or behind JOIN
sq_alias
    : LEFT_PAREN! all_sql_query RIGHT_PAREN! (LITERAL_AS! node_new_name)?
    ;

derived_table
    : LEFT_PAREN! node_sql_query RIGHT_PAREN!
    ;

node_db_name
    : db_name -> ^(QUERY_NAME db_name)
    ;

node_table_name
    : table_name -> ^(TABLE_NAME table_name)
    ;

node_func_name
    : func_name -> ^(FUNCTION_NAME func_name)
    ;

node_column_name
    : column_name -> ^(COLUMN_NAME column_name)
    ;

node_table_hint
    : table_hint -> ^(TABLE_HINT table_hint)
    ;

node_new_name
    : new_name -> ^(NEW_NAME new_name)
    ;

node_asterisk
    : asterisk -> ^(ASTERISK_ asterisk)
    ;

asterisk
    : ASTERISK
    ;

new_name
    : quoted_identifier
    | id_IDENTIFICATOR
    ;

table_name
    : quoted_identifier
    | id_IDENTIFICATOR
    ;

plain_name
    : quoted_identifier
    | id_IDENTIFICATOR
    ;

func_name
    : quoted_identifier
    | id_IDENTIFICATOR
    ;

db_name
    : quoted_identifier
    | id_IDENTIFICATOR
    ;

column_name
    : quoted_identifier
    | id_IDENTIFICATOR
    | ASTERISK
    ;

assign_name
    : (quoted_identifier | id_IDENTIFICATOR) EQ expression
    ;

// A name that starts with digits is two tokens: 1a
id_IDENTIFICATOR
    : DIGIT IDENTIFICATOR
    | IDENTIFICATOR
    ;

// The words that are names without brackets: Month, Left, desc, [Unit Price]
quoted_identifier
    : date_part
    | datetime_function
    | other_function
    | number_function
    | string_function
    | DESC_KEYWORD
    | COL_PAREN_ATTRITION
    ;

// with (NOLOCK, INDEX 1 2)
table_hint
    : WITH_KEYWORD! LEFT_PAREN! table_hint_keyword (COMMA! table_hint_keyword)* RIGHT_PAREN!
    ;

table_hint_keyword
    : 'INDEX' node_number node_number*
    | 'FASTFIRSTROW'
    | 'HOLDLOCK'
    | 'NOLOCK'
    | 'PAGLOCK'
    | 'READCOMMITTED'
    | 'READPAST'
    | 'READUNCOMMITTED'
    | 'REPEATABLEREAD'
    | 'ROWLOCK'
    | 'SERIALIZABLE'
    | 'TABLOCK'
    | 'TABLOCKX'
    | 'UPDLOCK'
    | 'XLOCK'
    ;

into_name
    : 'INTO'! node_new_name
    ;

// --------------------------------------------------------------- conditions

// (a BETWEEN 1 AND 2): ^(BETWEEN ^(LEFT_PAREN a) ^(AND 1 2) RIGHT_PAREN)
between_expression_whis_paren
    : LEFT_PAREN^ expression NOT_KEYWORD? BETWEEN_KEYWORD^ between_logical_expression RIGHT_PAREN
    ;

// a NOT BETWEEN 1 AND 2
between_expression
    : expression NOT_KEYWORD? BETWEEN_KEYWORD^ between_logical_expression
    ;

// The AND of BETWEEN is a logical operator like any other: 1 AND 2
between_logical_expression
    : expression ((logical_operator expression)=> logical_operator^ expression)?
    ;

node_search_condition
    : search_condition -> ^(SEARCH_CONDITION search_condition)
    ;

// a = 1, (a = 1)
search_condition
    : func_comparison
    | (LEFT_PAREN func_comparison RIGHT_PAREN)=> LEFT_PAREN^ func_comparison RIGHT_PAREN
    ;

// AND and OR stand at one level: a OR b AND c is ^(AND ^(OR a b) c)
logical_expression
    : logical_factor ((logical_operator logical_factor)=> logical_operator^ logical_factor)*
    ;

logical_operator
    : AND_KEYWORD
    | AND_KEYWORD2
    | OR_KEYWORD
    | OR_KEYWORD2
    ;

// NOT a = 1, a BETWEEN 1 AND 2, (a = 1 OR b = 2), (a AND b) = 1
logical_factor
    : (LEFT_PAREN expression NOT_KEYWORD? BETWEEN_KEYWORD between_logical_expression RIGHT_PAREN)=>
      between_expression_whis_paren
    | (expression NOT_KEYWORD? BETWEEN_KEYWORD between_logical_expression)=> between_expression
    | (NOT_KEYWORD? node_search_condition)=> (NOT_KEYWORD^)? node_search_condition
    | (LEFT_PAREN logical_expression)=> LEFT_PAREN^ logical_expression RIGHT_PAREN?
      (comparison^ (NOT_KEYWORD NULL_KEYWORD | func_parameter | node_sql_query) RIGHT_PAREN?)?
    | (LEFT_PAREN? NOT_KEYWORD? node_search_condition RIGHT_PAREN?)=>
      LEFT_PAREN? (NOT_KEYWORD^)? node_search_condition RIGHT_PAREN?
    | expression
    ;

// Guessed only: a logical_factor that is a condition and no mere expression, in parentheses of its own or without.
condition
    : (LEFT_PAREN expression NOT_KEYWORD? BETWEEN_KEYWORD between_logical_expression RIGHT_PAREN)=>
      between_expression_whis_paren
    | (expression NOT_KEYWORD? BETWEEN_KEYWORD between_logical_expression)=> between_expression
    | (NOT_KEYWORD? node_search_condition)=> NOT_KEYWORD? node_search_condition
    | (LEFT_PAREN logical_expression RIGHT_PAREN? comparison (NOT_KEYWORD NULL_KEYWORD | func_parameter | node_sql_query))=>
      LEFT_PAREN logical_expression RIGHT_PAREN? comparison (NOT_KEYWORD NULL_KEYWORD | func_parameter | node_sql_query)
      RIGHT_PAREN?
    | (LEFT_PAREN logical_factor logical_operator logical_factor)=> LEFT_PAREN logical_expression RIGHT_PAREN?
    | LEFT_PAREN condition RIGHT_PAREN?
    ;

// a NOT IN (1, 2). NOT is the infix word where a comparison follows it, else the comparison itself: a NOT b
func_comparison
    : func_parameter ((NOT_KEYWORD comparison)=> NOT_KEYWORD)? comparison^ (func_parameter | node_sql_query)
    ;

comparison
    : EQ
    | GE
    | GOJ
    | GT
    | IN_KEYWORD
    | IS_KEYWORD
    | LE
    | LIKE_KEYWORD
    | LOJ
    | L_T
    | NOT_EQ
    | NOT_KEYWORD
    ;

// A list has its parentheses as nodes, (1, 2); one element in parentheses is an expression, (1)
func_parameter
    : (LEFT_PAREN (expression | '@' id_IDENTIFICATOR) COMMA)=>
      LEFT_PAREN (expression | '@' id_IDENTIFICATOR) (COMMA! expression)* RIGHT_PAREN
    | expression
    | '@' id_IDENTIFICATOR
    ;

result_expression
    : expression
    | logical_expression
    ;

logical_or_expression
    : logical_expression
    | expression
    ;

// a, a(+)
variable
    : node_column_specification LEFT_PAREN PLUS RIGHT_PAREN
    | node_column_specification
    ;

// a + 1 = b
variety_select
    : expression (comparison^ expression)*
    | node_column_specification
    | node_sql_sub_query
    | 'IDENTIFYCOL'
    | 'ROWGUIDCOL'
    ;

// -------------------------------------------------------------- expressions

// -a + b is ^(PLUS ^(MINUS a) b)
expression
    : ((prefix_sign)=> (PLUS^ | MINUS^) | NOT_KEYWORD^)? term ((PLUS^ | MINUS^) term)*
    ;

// Guessed only: the sign is a prefix unless a number starts at it, -1; before a call of a user function it is one, -1a(2)
prefix_sign
    : (znak number_start)=> znak user_func_name
    | znak
    ;

number_start
    : DIGIT
    | DOT DIGIT
    | NOT_KEYWORD
    | NULL_KEYWORD
    | TRUE_KEYWORD
    | FALSE_KEYWORD
    ;

// a * b & c: one level, left-associative
term
    : factor ((ASTERISK^ | DIVIDE^ | MOD1^ | MOD^ | MOD_KEYWORD^ | AMPERSAND^) factor)*
    ;

// a | | b
factor
    : factor2 (VERTBAR VERTBAR factor2)*
    ;

// Parentheses around a condition stay as nodes, (a = b), around any other expression they leave no trace, (a + b).
factor2
    : all_node_function
    | (LEFT_PAREN condition RIGHT_PAREN)=> LEFT_PAREN^ logical_expression RIGHT_PAREN
    | (LEFT_PAREN expression RIGHT_PAREN)=> LEFT_PAREN! expression RIGHT_PAREN!
    | node_sql_literal
    | variable
    | expression_list
    | node_table_specification
    | (LEFT_PAREN SELECT_KEYWORD)=> sql_sub_query
    | node_number
    | node_column_specification
    ;

// (1, 2, 3)
expression_list
    : LEFT_PAREN expression (COMMA! expression)* RIGHT_PAREN
    ;

node_sql_literal
    : sql_literal -> ^(SQL_LITERAL sql_literal)
    ;

sql_literal
    : node_number
    | node_date_literal
    | node_quoted_string
    | NULL_KEYWORD
    ;

node_quoted_string
    : quoted_string -> ^(SQL_STRING quoted_string)
    ;

// 'a', "a"
quoted_string
    : QUOTE_ATTRITION
    | MY_QUOTE_ATTRITION
    ;

node_number
    : number -> ^(NUMBER_LITERAL number)
    ;

// Tokens, not one word: -1.5 is MINUS DIGIT DOT DIGIT
number
    : (PLUS | MINUS)?
      ( exp_number
      | DOT DIGIT
      | (DIGIT)=> DIGIT (DOT DIGIT)?  // always taken where no exponent follows: 1 . a is 1, and . a trails
      | NOT_KEYWORD
      | NULL_KEYWORD
      | TRUE_KEYWORD
      | FALSE_KEYWORD
      | NOT_KEYWORD NULL_KEYWORD
      )
    ;

// 1.5E+3
exp_number
    : DIGIT (DOT DIGIT)? id_IDENTIFICATOR znak* DIGIT
    ;

znak
    : MINUS
    | PLUS
    ;

node_maximum
    : maximum -> ^(NUMBER_LITERAL maximum)
    ;

maximum
    : ALL_KEYWORD
    | MAX_KEYWORD
    ;

node_date_literal
    : d_date_literal -> ^(DATE d_date_literal)
    ;

// #1/2/2000 10:30#, #Jan 1, 2000#
d_date_literal
    : '#'
      ( (number DIVIDE number DIVIDE number time?)=> number DIVIDE number DIVIDE number time?
      | id_IDENTIFICATOR WS* number COMMA? WS* number
      )
      '#'
    ;

// 10:30
time
    : number ':' number
    ;

sum_or_where
    : SUM
    | WHERE_KEYWORD
    ;

// ---------------------------------------------------------------- functions

all_node_function
    : node_function
    ;

node_function
    : function_ -> ^(FUNCTION function_)
    | user_func_name -> ^(USER_FUNCTION user_func_name)
    | convert_function -> ^(FUNCTION convert_function)
    | case_function -> ^(FUNCTION case_function)
    ;

// Left(a, 1); EXISTS SELECT a FROM t, behind which a parameter list may stand
function_
    : exist_func node_func_param?
    | function node_func_param
    ;

// {fn NOW: the closing brace is not taken
function
    : other_function
    | number_function
    | string_function
    | LEFT_BRACE!? escape_syn? datetime_function
    | configuration_function
    ;

// MyFunc(1, 2)
user_func_name
    : id_IDENTIFICATOR node_func_param
    ;

convert_function
    : convert_func node_convert_func_param
    ;

case_function
    : IIF node_case_param
    ;

node_func_param
    : function_param -> ^(FUNC_PARAM function_param)
    ;

// (a, b + 1), (*), (a = 1 AND b = 2, c); no parameter starts with an at sign
function_param
    : LEFT_PAREN^
      ( (ASTERISK RIGHT_PAREN)=> ASTERISK
      | (logical_parameter)=> logical_expression
      | variety_select
      )?
      (COMMA! logical_expression | variety_select)*
      RIGHT_PAREN!
    ;

// Guessed only: a parameter with a logical operator.
logical_parameter
    : {LA(1) != SIGN_AT}? logical_factor logical_operator
    ;

node_date_part
    : date_part -> ^(DATE_PART date_part)
    ;

node_group_func_param
    : group_func_param -> ^(FUNC_PARAM group_func_param)
    | convert_func_param -> ^(FUNC_PARAM convert_func_param)
    ;

node_convert_func_param
    : convert_func_param -> ^(FUNC_PARAM convert_func_param)
    ;

// (DISTINCT a, b)
group_func_param
    : LEFT_PAREN! (ALL_KEYWORD | DISTINCT_KEYWORD)? (ASTERISK | expression (COMMA! expression)*) RIGHT_PAREN!?
    ;

// (INT, a, 1), (a AS INT)
convert_func_param
    : (LEFT_PAREN node_datatype)=> LEFT_PAREN! node_datatype COMMA! expression (COMMA! node_style)? RIGHT_PAREN!?
    | LEFT_PAREN! expression node_as^ node_datatype RIGHT_PAREN!?
    ;

node_as
    : as_rock -> ^(AS as_rock)
    ;

as_rock
    : LITERAL_AS!
    ;

node_case_param
    : case_param -> ^(FUNC_PARAM case_param)
    ;

// (a = 1, 2, 3): the commas stay as nodes
case_param
    : LEFT_PAREN! select_list (COMMA select_list)* RIGHT_PAREN!
    ;

node_case_func_param
    : case_func_param -> ^(FUNC_PARAM case_func_param)
    ;

case_func_param
    : result_expression
    ;

node_exist_func_param
    : all_sql_query -> ^(FUNC_PARAM all_sql_query)
    ;

// EXISTS SELECT a FROM t: no parentheses
exist_func
    : EXISTS node_exist_func_param
    ;

escape_syn
    : 'fn'
    ;

date_part
    : 'count' | 'd' | 'day' | 'dd' | 'dw' | 'm' | 'mi' | 'mm' | 'month' | 'n' | 'week' | 'wk' | 'ww' | 'year' | 'yy'
    | 'yyyy'
    ;

datetime_function
    : DATE | DATEADD | DATEDIFF | DATEPART | DATESERIAL | DATEVALUE | DATE_DOLLAR | DAY | DDB | GETDATE | GETUTCDATE
    | HOUR | ISDATE | MINUTE | MONTH | NOW | SECOND | TIME | TIMER | TIMESERIAL | TIMEVALUE | TIME_DOLLAR | WEEKDAY
    | YEAR
    ;

convert_func
    : CAST | 'CONVERT'
    ;

number_function
    : ABS | ACOS | ASIN | ATAN | ATN2 | AVG | CEILING | COS | COT | COUNT | DEGREES | EXP | FLOOR | INT | ISNUMERIC
    | LOG | LOG10 | MAX_KEYWORD | MIN | PI | POWER | RADIANS | RAND | ROUND | SIGN | SIN | SQRT | SUM | TAN
    ;

configuration_function
    : CBOOL | CBYTE | CCUR | CDATE | CDBL | CINT | CLNG | CSNG | CSTR | CVAR | CVDATE | CVERR | VAL
    ;

string_function
    : ASCB | ASCW | ASC_KEYWORD | CHR | CHRB | CHRB_DOLLAR | CHRW | CHRW_DOLLAR | CHR_DOLLAR | FORMAT | FORMAT_DOLLAR
    | INSTR | INSTRREV | LEFTB | LEFTB_DOLLAR | LEFT_KEYWORD | LEFT_KEYWORD_DOLLAR | LEN | LENB | LTRIM | LTRIM_DOLLAR
    | MID | MIDB | MIDB_DOLLAR | MID_DOLLAR | RIGHTB | RIGHTB_DOLLAR | RIGHT_KEYWORD | RIGHT_KEYWORD_DOLLAR | RTRIM
    | RTRIM_DOLLAR | SPACE | SPACE_DOLLAR | STR | STRCOMP | STRCONV | STRING | STRING_DOLLAR | STR_DOLLAR | TRIM
    | TRIM_DOLLAR
    ;

other_function
    : CHOOSE | DCOUNT | DLOOKUP | ERROR | ERROR_DOLLAR | FIRST | FIX | FV | HEX | HEX_DOLLAR | ICASE | ICASE_DOLLAR
    | IMESTATUS | IPMT | IRR | ISEMPTY | ISERROR | ISNULL | ISOBJECT | LAST | LCASE | LCASE_DOLLAR | MIRR | NPER | NPV
    | OCT | OCT_DOLLAR | PARTITION | PMT | PPMT | PV | QBCOLOR | RATE | RGB | SLN | SWITCH | SYD | TYPENAME | UCASE
    | UCASE_DOLLAR | VARTYPE
    ;

data_type
    : BIGINT | BIT | CHAR | DATETIME | DECIMAL | FLOAT | INT | INTEGER | MONEY | NCHAR | NTEXT | NUMERIC | NVARCHAR
    | REAL | SMALLDATETIME | SMALLMONEY | TIMESTAMP | TINYINT | VARCHAR
    ;

node_style
    : number -> ^(STYLE number)
    ;

node_datatype
    : data_type_all -> ^(DATATYPE data_type_all)
    ;

// DECIMAL(10, 2), VARCHAR(MAX)
data_type_all
    : data_type (LEFT_PAREN! (node_maximum | node_number (COMMA! node_number)*) RIGHT_PAREN!)?
    ;

node_as_token
    : as_token -> ^(AS as_token)
    ;

as_token
    : LITERAL_AS
    ;

// ------------------------------------------------------------------- tokens

// Keywords, any case; the earlier rule wins a tie: Select, SELECT

SELECT_KEYWORD : S E L E C T;
TOP_KEYWORD : T O P;
ALL_KEYWORD : A L L;
DISTINCT_KEYWORD : D I S T I N C T;
DISTINCTROW_KEYWORD : D I S T I N C T R O W;
PERCENT_KEYWORD : P E R C E N T;
WITHTIES_KEYWORD : W I T H T I E S;
FROM_KEYWORD : F R O M;
EXISTS : E X I S T S;
LITERAL_AS : A S;
LEFT_COL_PAREN : '[';
RIGHT_COL_PAREN : ']';
MY_QUOTE : '"';
MY_ONE_QUOTE : '`';
QUOTE : '\'';
INNER_KEYWORD : I N N E R;
JOIN_KEYWORD : J O I N;
LEFT_KEYWORD : L E F T;
LEFT_KEYWORD_DOLLAR : L E F T '$';
RIGHT_KEYWORD : R I G H T;
RIGHT_KEYWORD_DOLLAR : R I G H T '$';
FULL_KEYWORD : F U L L;
OUTER_KEYWORD : O U T E R;
LEFT_BRACE : '{';
RIGHT_BRACE : '}';
NATURAL_KEYWORD : N A T U R A L;
CROSS_KEYWORD : C R O S S;
WITH_KEYWORD : W I T H;
LEFT_PAREN : '(';
RIGHT_PAREN : ')';
ON_KEYWORD : O N;
NULL_KEYWORD : N U L L;
NOT_NULL_KEYWORD : N O T N U L L;
WHERE_KEYWORD : W H E R E;
CUBE_KEYWORD : C U B E;
ROLLUP_KEYWORD : R O L L U P;
HAVING_KEYWORD : H A V I N G;
UNION_KEYWORD : U N I O N;
GROUP_KEYWORD : G R O U P;
ORDER_KEYWORD : O R D E R;
ASC_KEYWORD : A S C;
DESC_KEYWORD : D E S C;
COMPUTE_KEYWORD : C O M P U T E;
BY_KEYWORD : B Y;
FOR_KEYWORD : F O R;
OPTION_KEYWORD : O P T I O N;
AND_KEYWORD : A N D;
AND_KEYWORD2 : '&&';
OR_KEYWORD : O R;
OR_KEYWORD2 : '||';
BETWEEN_KEYWORD : B E T W E E N;
LIKE_KEYWORD : L I K E;
IS_KEYWORD : I S;
NOT_KEYWORD : N O T;
IN_KEYWORD : I N;
CASE : C A S E;
DATETIME : D A T E T I M E;
VARCHAR : V A R C H A R;
CHAR : C H A R;
INT : I N T;
NUMERIC : N U M E R I C;
CONCAT : C O N C A T;
FLOAT : F L O A T;
MONEY : M O N E Y;
DECIMAL : D E C I M A L;
SMALLMONEY : S M A L L M O N E Y;
BIGINT : B I G I N T;
BIT : B I T;
REAL : R E A L;
SMALLDATETIME : S M A L L D A T E T I M E;
NVARCHAR : N V A R C H A R;
TINYINT : T I N Y I N T;
NTEXT : N T E X T;
TIMESTAMP : T I M E S T A M P;
INTEGER : I N T E G E R;
GETDATE : G E T D A T E;
WEEKDAY : W E E K D A Y;
NOW : N O W;
DATEADD : D A T E A D D;
DATEDIFF : D A T E D I F F;
DATENAME : D A T E N A M E;
DATEPART : D A T E P A R T;
DAY : D A Y;
GETUTCDATE : G E T U T C D A T E;
HOUR : H O U R;
ISDATE : I S D A T E;
MONTH : M O N T H;
MINUTE : M I N U T E;
YEAR : Y E A R;
SECOND : S E C O N D;
DATE : D A T E;
DATE_DOLLAR : D A T E '$';
DATESERIAL : D A T E S E R I A L;
DATEVALUE : D A T E V A L U E;
DDB : D D B;
TIME : T I M E;
TIME_DOLLAR : T I M E '$';
TIMER : T I M E R;
TIMESERIAL : T I M E S E R I A L;
TIMEVALUE : T I M E V A L U E;
CONVERT : C O N V E R T;
CAST : C A S T;
AVG : A V G;
BYNARY_CHECKSUM : B Y N A R Y '_' C H E C K S U M;
CHECKSUM : C H E C K S U M;
COUNT : C O U N T;
COUNT_BIG : C O U N T '_' B I G;
GROUPING : G R O U P I N G;
MAX_KEYWORD : M A X;
MIN : M I N;
SUM : S U M;
STDEV : S T D E V;
STDEVP : S T D E V P;
VAR : V A R;
VARP : V A R P;
ABS : A B S;
ACOS : A C O S;
ASIN : A S I N;
ATAN : A T A N;
ATN2 : A T N '2';
CEILING : C E I L I N G;
COS : C O S;
COT : C O T;
DEGREES : D E G R E E S;
EXP : E X P;
FLOOR : F L O O R;
ISNUMERIC : I S N U M E R I C;
LOG : L O G;
LOG10 : L O G '10';
PI : P I;
POWER : P O W E R;
RADIANS : R A D I A N S;
RAND : R A N D;
ROUND : R O U N D;
SIGN : S I G N;
SIN : S I N;
SQRT : S Q R T;
TAN : T A N;
ISNULL : I S N U L L;
ASCII : A S C I I;
CHARINDEX : C H A R I N D E X;
COALESCE : C O A L E S C E;
LEN : L E N;
LOWER : L O W E R;
LTRIM : L T R I M;
LTRIM_DOLLAR : L T R I M '$';
NCHAR : N C H A R;
PARINDEX : P A R I N D E X;
QUOTENAME : Q U O T E N A M E;
READTEXT : R E A D T E X T;
REPLACE : R E P L A C E;
REPLICATE : R E P L I C A T E;
REVERSE : R E V E R S E;
RTRIM : R T R I M;
RTRIM_DOLLAR : R T R I M '$';
SOUNDEX : S O U N D E X;
SPACE : S P A C E;
SPACE_DOLLAR : S P A C E '$';
STR : S T R;
STR_DOLLAR : S T R '$';
STUFF : S T U F F;
SUBSTRING : S U B S T R I N G;
TEXTVALID : T E X T V A L I D;
UNICODE : U N I C O D E;
UPDATETEXT : U P D A T E T E X T;
UPPER : U P P E R;
ASCB : A S C B;
ASCW : A S C W;
CHR : C H R;
CHR_DOLLAR : C H R '$';
CHRB : C H R B;
CHRB_DOLLAR : C H R B '$';
CHRW : C H R W;
CHRW_DOLLAR : C H R W '$';
FORMAT : F O R M A T;
FORMAT_DOLLAR : F O R M A T '$';
INSTR : I N S T R;
INSTRREV : I N S T R R E V;
LEFTB : L E F T B;
LEFTB_DOLLAR : L E F T B '$';
LENB : L E N B;
MID : M I D;
MID_DOLLAR : M I D '$';
MIDB : M I D B;
MIDB_DOLLAR : M I D B '$';
RIGHTB : R I G H T B;
RIGHTB_DOLLAR : R I G H T B '$';
STRCOMP : S T R C O M P;
STRCONV : S T R C O N V;
STRING : S T R I N G;
STRING_DOLLAR : S T R I N G '$';
TRIM : T R I M;
TRIM_DOLLAR : T R I M '$';
WRITETEXT : W R I T E T E X T;
LOOP : L O O P;
HASH : H A S H;
MERGE : M E R G E;
REMOTE : R E M O T E;
IDENT_CURRENT : I D E N T UNDERLINE C U R R E N T;
ERROR : E R R O R;
ERROR_DOLLAR : E R R O R '$';
FIX : F I X;
FV : F V;
HEX : H E X;
ICASE : I C A S E;
IIF : I I F;
CHOOSE : C H O O S E;
IMESTATUS : I M E S T A T U S;
IPMT : I P M T;
IRR : I R R;
ISEMPTY : I S E M P T Y;
ISERROR : I S E R R O R;
ISOBJECT : I S O B J E C T;
MIRR : M I R R;
NPER : N P E R;
NPV : N P V;
OCT : O C T;
PARTITION : P A R T I T I O N;
PMT : P M T;
PPMT : P P M T;
PV : P V;
QBCOLOR : Q B C O L O R;
RATE : R A T E;
RGB : R G B;
SLN : S L N;
SWITCH : S W I T C H;
SYD : S Y D;
TYPENAME : T Y P E N A M E;
UCASE : U C A S E;
LCASE : L C A S E;
VARTYPE : V A R T Y P E;
DLOOKUP : D L O O K U P;
LAST : L A S T;
FIRST : F I R S T;
DCOUNT : D C O U N T;
HEX_DOLLAR : H E X '$';
ICASE_DOLLAR : I C A S E '$';
OCT_DOLLAR : O C T '$';
UCASE_DOLLAR : U C A S E '$';
LCASE_DOLLAR : L C A S E '$';
MOD_KEYWORD : M O D;
CBOOL : C B O O L;
CCUR : C C U R;
CDBL : C D B L;
CINT : C I N T;
CSTR : C S T R;
CVDATE : C V D A T E;
CBYTE : C B Y T E;
CDATE : C D A T E;
CLNG : C L N G;
CSNG : C S N G;
CVAR : C V A R;
CVERR : C V E R R;
VAL : V A L;
FALSE_KEYWORD : F A L S E;
TRUE_KEYWORD : T R U E;

// A run of digits; points and exponents are put together by the parser: 10
DIGIT : '0'..'9'+;

// Größe, Tab_1; never a leading digit
IDENTIFICATOR
    : ('A'..'Z' | '_' | 'a'..'z' | '\u0080'..'\uFFFE') ('A'..'Z' | '_' | 'a'..'z' | '0'..'9' | '\u0080'..'\uFFFE')*
    ;

// Brackets and quotes are part of the token and there is no escape: [Unit Price], 'it', "it"
COL_PAREN_ATTRITION : '[' ~']'* ']';
QUOTE_ATTRITION : '\'' ~'\''* '\'';
MY_QUOTE_ATTRITION : '"' ~'"'* '"';

PLUS : '+';
MINUS : '-';
AMPERSAND : '&';
DIVIDE : '/';
DOT : '.';
ASTERISK : '*';
COMMA : ',';
VERTBAR : '|';
MOD1 : '%';
MOD : '^';
DOLLAR : '$';
EXCLAMATION_MARK : '!';
EQ : '=';
L_T : '<';
GT : '>';
NOT_EQ : '!=' | '<>';
LE : '<=';
GE : '>=';
LOJ : '*=';
GOJ : '=*';

// One unit of white space a token, on the hidden channel
WS : (' ' | '\t' | '\n' | '\r' | '\r' '\n') { $channel = HIDDEN; };

fragment A : 'A' | 'a';
fragment B : 'B' | 'b';
fragment C : 'C' | 'c';
fragment D : 'D' | 'd';
fragment E : 'E' | 'e';
fragment F : 'F' | 'f';
fragment G : 'G' | 'g';
fragment H : 'H' | 'h';
fragment I : 'I' | 'i';
fragment J : 'J' | 'j';
fragment K : 'K' | 'k';
fragment L : 'L' | 'l';
fragment M : 'M' | 'm';
fragment N : 'N' | 'n';
fragment O : 'O' | 'o';
fragment P : 'P' | 'p';
fragment Q : 'Q' | 'q';
fragment R : 'R' | 'r';
fragment S : 'S' | 's';
fragment T : 'T' | 't';
fragment U : 'U' | 'u';
fragment V : 'V' | 'v';
fragment W : 'W' | 'w';
fragment X : 'X' | 'x';
fragment Y : 'Y' | 'y';
fragment Z : 'Z' | 'z';
fragment UNDERLINE : '_';
