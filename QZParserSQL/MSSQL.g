// MS SQL: the lexer and parser of queries.
//
// Two layers of words: a word in quotes is a token in the case shown and wins a tie, a keyword rule takes any case.
// White space makes no token: the lexer drops it like any other character that it doesn't know, and strings and quoted
// names are runs of tokens. The parser decides by one token and, where several alternatives remain, by guesses in the
// order written. A clause whose guess fails is no error: it trails at the root with all that follows it. Rules called
// node_x wrap the rule x in a node.
grammar MSSQL;

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
    PROCEDURE; PROCNAME; PARAMETER; SELECT_QUERY_; SELECT_QUERY_IN; PREDICATE; SELECT_LIST; COLUMN_SPECIFICATION;
    TABLE_SPECIFICATION; FUNCTION_SPECIFICATION; DB_NAME; TABLE_NAME; COLUMN_NAME; FUNCTION_NAME; NEW_NAME; ALIAS;
    TABLE_HINT; JOIN_DEF; SQL_STRING; JOIN_PREFIX; JOIN_POSTFIX; JOIN_CONDITION; NESTED_JOIN; FUNCTION;
    FUNC_PARAM; GROUP_FUNCTION; SQL_LITERAL; NUMBER_literal; SEARCH_CONDITION; WHERE_CONDITION; GROUP_BY; HAVING;
    UNION; ORDER_BY; COMPUTE; BY; FOR; OPTION; NUMBER_LITERAL; DATE; LITERALAS; STYLE; DATATYPE; CONVERT_FUNCTION;
    USER_FUNCTION; DATE_FUNCTION; AS; FROM_DEF_; AND; ISNOT; IN_; UNION_; DATE_PART; ASTERISK_;
    NESTED_JOIN_PREFIX; NESTED_JOIN_POSTFIX; NESTED_JOIN_SERCH; COMMA_KEYWORD;
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
    : sql_query -> ^(SELECT_QUERY_ sql_query)
    ;

// (SELECT a FROM t WHERE b = 1). A clause is entered only where its guess succeeds, else it trails with all that follows
// it. The opening parenthesis is taken only before SELECT; of two there the second is left out.
sql_query
    : ((LEFT_PAREN LEFT_PAREN? SELECT_KEYWORD)=> LEFT_PAREN!)? SELECT_KEYWORD! node_predicate node_select_list
      from_list? node_where_condition? node_group_by? node_having? node_order_by? node_compute? node_for? node_option?
      node_union? RIGHT_PAREN!?
    ;

node_union
    : union_ -> ^(UNION union_)
    ;

// UNION ALL SELECT b FROM u
union_
    : UNION_KEYWORD_! ALL_KEYWORD? node_sql_query
    ;

node_predicate
    : predicate -> ^(PREDICATE predicate?)
    ;

// DISTINCT TOP 5 PERCENT; or nothing
predicate
    : (ALL_KEYWORD | DISTINCT_KEYWORD)? top_expression?
    ;

// TOP (5) PERCENT
top_expression
    : TOP_KEYWORD^ LEFT_PAREN!? node_number RIGHT_PAREN!? PERCENT_KEYWORD? WITHTIES_KEYWORD?
    ;

node_select_list
    : select_list_ -> ^(SELECT_LIST select_list_)
    ;

// a, b AS x, COUNT(*)
select_list_
    : select_list (COMMA! select_list)*
    ;

// One item: always a node_fff, whose alias is optional, as long as it can be read at all.
select_list
    : node_fff
    | variety_select
    | node_column_specification
    ;

node_fff
    : fff -> ^(ALIAS fff)
    ;

// a + 1 AS x
fff
    : variety_select ((LITERAL_AS node_new_name)=> LITERAL_AS! node_new_name)?
    ;

// a + 1 = b
variety_select
    : (derived_table)=> derived_table
    | 'IDENTIFYCOL'
    | 'ROWGUIDCOL'
    | expression ((comparison expression)=> comparison^ expression)*
    ;

// The query takes the first closing parenthesis itself: (SELECT a FROM t))
derived_table
    : LEFT_PAREN! node_sql_query RIGHT_PAREN!
    ;

// --------------------------------------------------------------------- FROM

// FROM t, u AS x
from_list
    : FROM_KEYWORD! node_from_list
    ;

node_from_list
    : from_list_ -> ^(FROM_DEF_ from_list_?)
    ;

// Each comma becomes the root over the sources before it; behind the last one there may be nothing: FROM a,
from_list_
    : all_table_source_ ((COMMA all_table_source_)=> COMMA^ all_table_source_)*
    ;

// A join first, then a table with or without an alias, then a derived table. Where none of these can start, the source
// is empty (FROM SELECT b); where a parenthesis opens, a query in it comes last: FROM (SELECT a FROM t) AS x
all_table_source_
    : (table_source_)=> table_source_
    | (node_t_n)=> node_t_n
    | (node_table_specification)=> node_table_specification
    | (table_source?)=> table_source?
    | (column_specification)=> column_specification
    | (node_sq_alias)=> node_sq_alias
    | all_sql_query
    ;

// ((a INNER JOIN b ON x = y) INNER JOIN c ON z = w: opening parentheses are not counted
table_source_
    : LEFT_PAREN!* node_joined_table_
    ;

// a JOIN b ON x = y LEFT JOIN c ON z = w: what is joined on stands beside the join
node_joined_table_
    : joined_table_ ((nestedJoin)=> nestedJoin)? -> ^(JOIN_DEF joined_table_ nestedJoin?)
    ;

// a INNER JOIN b ON x = y. The prefix may be empty, so that the second alternative is never needed: JOIN c ON z = w
joined_table_
    : (node_join_prefix JOIN_KEYWORD node_join_postfix_)=> node_join_prefix JOIN_KEYWORD^ node_join_postfix_
    | JOIN_KEYWORD^ node_join_postfix_
    ;

node_join_prefix
    : node_test_prefix -> ^(JOIN_PREFIX node_test_prefix?)
    ;

node_test_prefix
    : LEFT_PAREN!? join_prefix RIGHT_PAREN!?
    ;

// a WITH (NOLOCK) LEFT OUTER: tables and join words before JOIN
join_prefix
    : ( (join_type | (node_t_n)=> node_t_n | node_table_specification) ((node_table_hint)=> node_table_hint)?
      | (node_sq_alias)=> node_sq_alias
      )*
      join_type?
    ;

// FULL OUTER HASH
join_type
    : (INNER_KEYWORD | (LEFT_KEYWORD | RIGHT_KEYWORD | FULL_KEYWORD) OUTER_KEYWORD?) join_hint?
    | CROSS_KEYWORD
    ;

join_hint
    : LOOP
    | HASH
    | MERGE
    | REMOTE
    ;

// b ON x = y, where b may be a join itself: a JOIN b JOIN c ON y = z ON x = y
node_join_postfix_
    : ((old_big_postfix)=> old_big_postfix)? ((join_postfix_)=> join_postfix_)?
      ((on_search_contition)=> on_search_contition)?
      -> ^(JOIN_POSTFIX old_big_postfix? join_postfix_? on_search_contition?)
    ;

old_big_postfix
    : ((node_joined_table_)=> node_joined_table_)? big_postfix
    ;

big_postfix
    : postfix_table
    ;

join_postfix_
    : postfix_table ((node_joined_table_)=> node_joined_table_)*
    ;

// What JOIN joins: (b JOIN c ON y = z), b AS x, (SELECT a FROM t) AS x; and a hint: b WITH (NOLOCK)
postfix_table
    : ( (LEFT_PAREN? nestedJoin)=> LEFT_PAREN!? nestedJoin RIGHT_PAREN!?
      | (node_t_n)=> node_t_n
      | (node_table_specification)=> node_table_specification
      | (node_sq_alias)=> node_sq_alias
      | all_sql_query
      )
      ((node_table_hint)=> node_table_hint)?
    ;

nestedJoin
    : node_joined_table_
    ;

// ON a.x = b.x AND a.y = b.y: each operator becomes the root over all that stands before it, ON included.
// ON a AND b is ^(AND ^(ON a) b)
on_search_contition
    : ( (ON_KEYWORD LEFT_PAREN? node_search_condition1)=>
        ON_KEYWORD^ LEFT_PAREN!? node_search_condition1 RIGHT_PAREN!?
      )?
      ( (logical_operator LEFT_PAREN? node_search_condition1)=>
        logical_operator^ LEFT_PAREN!? node_search_condition1 RIGHT_PAREN!*
      )*
    ;

// The derived table is told by its second closing parenthesis: (SELECT a FROM t)) AS x
table_source
    : ((node_t_n)=> node_t_n | node_table_specification)
      'WITH' ((table_hint)=> table_hint ((COMMA table_hint)=> COMMA! table_hint)*)?
    | node_d_t ((select_list)=> select_list ((COMMA select_list)=> COMMA! select_list)*)?
    ;

// Behind AS stands a name; the word AS itself is a child of the alias, as in all of the next four.
node_d_t
    : d_t -> ^(ALIAS d_t)
    ;

d_t
    : derived_table ((LITERAL_AS node_new_name)=> LITERAL_AS node_new_name)?
    ;

node_t_n
    : t_n -> ^(ALIAS t_n)
    ;

// t AS x; and a mere t
t_n
    : node_table_specification ((LITERAL_AS node_new_name)=> LITERAL_AS node_new_name)?
    ;

node_sq_alias
    : sq_alias -> ^(ALIAS sq_alias)
    ;

// (SELECT a FROM t) AS x
sq_alias
    : all_sql_query ((LITERAL_AS node_new_name)=> LITERAL_AS node_new_name)?
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

// GROUP BY a, b with CUBE: the word WITH in capitals is another token and trails
group_by
    : GROUP_KEYWORD! BY_KEYWORD! ALL_KEYWORD? expression ((COMMA expression)=> COMMA! expression)*
      ((WITH_KEYWORD (CUBE_KEYWORD | ROLLUP_KEYWORD))=> WITH_KEYWORD (CUBE_KEYWORD | ROLLUP_KEYWORD))?
    ;

node_having
    : having -> ^(HAVING having)
    ;

// HAVING COUNT(*) > 1
having
    : HAVING_KEYWORD! logical_expression
    ;

node_order_by
    : order_by -> ^(ORDER_BY order_by)
    ;

// ORDER BY a DESC, b
order_by
    : ORDER_KEYWORD! BY_KEYWORD! expression (ASC_KEYWORD | DESC_KEYWORD)?
      (COMMA! expression (ASC_KEYWORD | DESC_KEYWORD)?)*
    ;

node_compute
    : compute -> ^(COMPUTE compute)
    ;

// COMPUTE SUM(a), MAX(b) BY c: words and commas stay
compute
    : COMPUTE_KEYWORD node_function ((COMMA node_function)=> COMMA node_function)* ((node_by)=> node_by)?
    ;

node_by
    : by -> ^(BY by)
    ;

by
    : BY_KEYWORD node_column_specification ((COMMA node_column_specification)=> COMMA node_column_specification)*
    ;

node_for
    : for_ -> ^(FOR for_)
    ;

// FOR XML AUTO.ELEMENTS: the separator is a dot, and stays
for_
    : FOR_KEYWORD!
      ( 'BROWSE'
      | 'XML' ('RAW' | 'AUTO' | 'EXPLICIT')
        ((DOT 'XMLDATA')=> DOT 'XMLDATA')?
        ((DOT 'ELEMENTS')=> DOT 'ELEMENTS')?
        ((DOT 'BYNATY base64')=> DOT 'BYNATY base64')?
      )
    ;

node_option
    : option -> ^(OPTION option)
    ;

// OPTION FAST 10, KEEP PLAN: no parentheses; word and commas stay
option
    : OPTION_KEYWORD query_hint ((COMMA query_hint)=> COMMA query_hint)*
    ;

query_hint
    : ((ORDER_KEYWORD | 'HASH') GROUP_KEYWORD)=> (ORDER_KEYWORD | 'HASH') GROUP_KEYWORD
    | (CONCAT | 'HASH' | 'MERGE') UNION_KEYWORD_
    | 'FAST' node_number
    | 'FORCE' ORDER_KEYWORD
    | 'MAXDOP' node_number
    | ('ROBUST' | 'KEEP' | 'KEEPFIXED') 'PLAN'
    | 'EXPAND VIEWS'
    ;

node_table_hint
    : table_hint -> ^(TABLE_HINT table_hint)
    ;

// WITH (NOLOCK, INDEX 1 2)
table_hint
    : 'WITH'! LEFT_PAREN! table_hint_keyword (COMMA! table_hint_keyword)* RIGHT_PAREN!
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

// ---------------------------------------------------- tables, columns, names

node_table_specification
    : table_specification -> ^(TABLE_SPECIFICATION table_specification)
    ;

// db.t
table_specification
    : (node_db_name DOT node_table_name)=> node_db_name DOT! node_table_name
    | node_table_name
    ;

node_column_specification
    : column_specification -> ^(COLUMN_SPECIFICATION column_specification)
    ;

// db.t.a; db.t* before FROM or a comma; t.a; a
column_specification
    : (node_db_name DOT node_table_name DOT node_column_name)=>
      node_db_name DOT! node_table_name DOT! node_column_name
    | (node_db_name DOT node_table_name ASTERISK (FROM_KEYWORD | COMMA))=>
      node_db_name DOT! node_table_name node_asterisk
    | (node_table_name DOT node_column_name)=> node_table_name DOT! node_column_name
    | node_column_name
    ;

node_db_name
    : db_name -> ^(DB_NAME db_name?)
    ;

node_table_name
    : table_name -> ^(TABLE_NAME table_name?)
    ;

node_column_name
    : column_name -> ^(COLUMN_NAME column_name?)
    ;

node_asterisk
    : asterisk -> ^(ASTERISK_ asterisk)
    ;

asterisk
    : ASTERISK
    ;

db_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

table_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

func_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

column_name
    : key_words
    | quoted_identifier
    | IDENTIFICATOR
    | ASTERISK
    ;

key_words
    : EXP
    | POWER
    | REMOTE
    ;

// The words that are names without quotes, and quoted names. What stands in quotes are tokens, each a child; a quote
// that is written twice stays, the outer pair goes: [a]]b] is a ] b ]
quoted_identifier
    : (date_part)=> date_part
    | datetime_function
    | LEFT_COL_PAREN! ~RIGHT_COL_PAREN* RIGHT_COL_PAREN!
      ((RIGHT_COL_PAREN ~RIGHT_COL_PAREN* RIGHT_COL_PAREN)=> RIGHT_COL_PAREN ~RIGHT_COL_PAREN* RIGHT_COL_PAREN)*
    | MY_QUOTE! ~MY_QUOTE* MY_QUOTE! ((MY_QUOTE ~MY_QUOTE* MY_QUOTE)=> MY_QUOTE ~MY_QUOTE* MY_QUOTE)*
    | MY_ONE_QUOTE! ~MY_ONE_QUOTE* MY_ONE_QUOTE!
      ((MY_ONE_QUOTE ~MY_ONE_QUOTE* MY_ONE_QUOTE)=> MY_ONE_QUOTE ~MY_ONE_QUOTE* MY_ONE_QUOTE)*
    ;

node_new_name
    : new_name -> ^(NEW_NAME new_name?)
    ;

// #x, 'x', COUNT
new_name
    : '\''!? ('#' | '##')? (group_function | quoted_identifier | IDENTIFICATOR) ('#' | '##')? '\''!? RIGHT_COL_PAREN!?
    ;

// ------------------------------------------------- rules that no rule calls

node_comma
    : comma -> ^(COMMA_KEYWORD comma?)
    ;

comma
    : COMMA!
    ;

node_and_condition
    : and_condition -> ^(AND and_condition)
    ;

// AND a = 1
and_condition
    : AND_KEYWORD? node_search_condition
    ;

all_old_big_postfix
    : old_big_postfix
    ;

node_sql_sub_query
    : sql_sub_query -> ^(SELECT_QUERY_ sql_sub_query)
    ;

sql_sub_query
    : all_sql_query
    ;

all_sub_query
    : node_sql_sub_query
    ;

node_func_name
    : func_name -> ^(FUNCTION_NAME func_name?)
    ;

plain_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

assign_name
    : (quoted_identifier | IDENTIFICATOR) EQ expression
    ;

into_name
    : 'INTO' node_new_name
    ;

// --------------------------------------------------------------- conditions

// AND and OR stand at one level: a = 1 OR b = 2 AND c = 3 is ^(AND ^(OR a b) c)
logical_expression
    : logical_factor ((logical_operator logical_factor)=> logical_operator^ logical_factor)*
    ;

logical_operator
    : AND_KEYWORD
    | AND_KEYWORD2
    | OR_KEYWORD
    | OR_KEYWORD2
    ;

// (a BETWEEN 1 AND 2 with its parenthesis as a node, a = 1, @x = 1, NOT a = 1
logical_factor
    : (LEFT_PAREN? between_expression)=> LEFT_PAREN? between_expression
    | (expression comparison)=> NOT_KEYWORD? node_search_condition
    | (node_search_condition)=> node_search_condition
    | (LEFT_PAREN? NOT_KEYWORD search_condition)=> node_comparison_not
    ;

// a NOT BETWEEN 1 AND 2
between_expression
    : expression NOT_KEYWORD? BETWEEN_KEYWORD^ between_logical_expression
    ;

// 1 AND 2: the operator is a plain child between the bounds
between_logical_expression
    : expression logical_operator expression
    ;

node_comparison_not
    : comparison_not -> ^(SEARCH_CONDITION comparison_not)
    ;

// (NOT a = 1)
comparison_not
    : LEFT_PAREN!? (NOT_KEYWORD^)? search_condition RIGHT_PAREN!*
    ;

node_search_condition
    : search_condition -> ^(SEARCH_CONDITION search_condition)
    ;

// (a = 1)
search_condition
    : (LEFT_PAREN func_comparison RIGHT_PAREN)=> LEFT_PAREN! func_comparison RIGHT_PAREN!
    | func_comparison
    ;

// a IN (1, 2), a = (SELECT b)
func_comparison
    : func_parameter comparison^ ((func_parameter)=> func_parameter | node_sql_query)
    ;

// @x; 1, 2, 3
func_parameter
    : (expression | '@' IDENTIFICATOR) ((COMMA expression)=> COMMA! expression)*
    ;

node_search_condition1
    : search_condition1 -> ^(SEARCH_CONDITION search_condition1)
    ;

search_condition1
    : (LEFT_PAREN func_comparison1 RIGHT_PAREN)=> LEFT_PAREN! func_comparison1 RIGHT_PAREN!
    | func_comparison1
    ;

// a.x = b.x; or a mere a
func_comparison1
    : func_parameter1
      ( (comparison (func_parameter1 | node_sql_query))=>
        comparison^ ((func_parameter1)=> func_parameter1 | node_sql_query)
      )?
    ;

// (a.x)
func_parameter1
    : LEFT_PAREN!? (expression | '@' IDENTIFICATOR) RIGHT_PAREN!?
    ;

comparison
    : LIKE_KEYWORD
    | IS_KEYWORD
    | NOT_KEYWORD
    | IN_KEYWORD
    | EQ
    | L_T
    | GT
    | NOT_EQ
    | LE
    | GE
    | LOJ
    | GOJ
    ;

// -------------------------------------------------------------- expressions

// -a + b is ^(PLUS ^(MINUS a) b)
expression
    : (MINUS^)? term (((PLUS | MINUS) term)=> (PLUS^ | MINUS^) term)*
    ;

// a * b & c: one level
term
    : factor
      ( ((ASTERISK | DIVIDE | MOD | AMPERSAND | VERTBAR) factor)=>
        (ASTERISK^ | DIVIDE^ | MOD^ | AMPERSAND^ | VERTBAR^) factor
      )*
    ;

// +a | | b
factor
    : (PLUS^)? factor2 ((VERTBAR VERTBAR factor2)=> VERTBAR VERTBAR factor2)*
    ;

// A column with the mark (+) comes before every function. An expression in parentheses needs no closing one, so that
// nothing behind it is ever taken where a parenthesis opens: (a, b) ends at the comma.
factor2
    : (node_column_specification LEFT_PAREN PLUS RIGHT_PAREN)=> variable
    | (node_sql_literal)=> node_sql_literal
    | (all_node_function)=> all_node_function
    | (all_node_function LITERAL_AS)=> node_func_alias
    | (LEFT_PAREN expression)=> LEFT_PAREN! expression RIGHT_PAREN!?
    | (variable)=> variable
    | (expression_list)=> expression_list
    | (node_table_specification)=> node_table_specification
    | (all_sql_query)=> all_sql_query
    | MINUS? node_column_specification
    ;

// (a, b)
expression_list
    : LEFT_PAREN expression (COMMA! expression)* RIGHT_PAREN
    ;

// a(+), -a
variable
    : (node_column_specification LEFT_PAREN PLUS RIGHT_PAREN)=> node_column_specification LEFT_PAREN PLUS RIGHT_PAREN
    | (MINUS^)? node_column_specification
    ;

node_func_alias
    : func_alias -> ^(ALIAS func_alias)
    ;

// SUM(a) AS x
func_alias
    : all_node_function ((LITERAL_AS node_new_name)=> LITERAL_AS node_new_name)?
    ;

node_sql_literal
    : sql_literal -> ^(SQL_LITERAL sql_literal)
    ;

sql_literal
    : node_number
    | (node_date_literal)=> node_date_literal
    | node_quoted_string
    ;

node_number
    : number -> ^(NUMBER_LITERAL number)
    ;

node_maximum
    : maximum -> ^(NUMBER_LITERAL maximum)
    ;

maximum
    : ALL_KEYWORD
    | MAX_KEYWORD
    ;

// Tokens, not one word: -1.5 is MINUS DIGIT DOT DIGIT
number
    : (PLUS | MINUS)?
      ( (exp_number)=> exp_number
      | DOT DIGIT
      | (DIGIT)=> DIGIT ((DOT DIGIT)=> DOT DIGIT)?
      | NOT_KEYWORD? NULL_KEYWORD
      )
    ;

// 1.5E+3
exp_number
    : DIGIT (DOT DIGIT)? IDENTIFICATOR znak* DIGIT
    ;

znak
    : PLUS
    | MINUS
    ;

node_date_literal
    : d_date_literal -> ^(DATE d_date_literal)
    ;

// '1/2/2000', 'Jan 1, 2000'
d_date_literal
    : '\'' (number DIVIDE number DIVIDE number | IDENTIFICATOR WS* number COMMA? WS* number) '\''
    ;

node_quoted_string
    : quoted_string -> ^(SQL_STRING quoted_string?)
    ;

// 'a b', N'a b': the tokens between the quotes, each a child
quoted_string
    : '\''! (~'\'')* '\''!
    | NSTR! '\''! (~'\'')* '\''!
    ;

// --------------------------------------------------------------------- CASE

// CASE a WHEN 1 THEN b ELSE c END
case_function
    : CASE node_case_param
    ;

node_case_param
    : case_param -> ^(FUNC_PARAM case_param)
    ;

case_param
    : ((LEFT_PAREN expression RIGHT_PAREN)=> LEFT_PAREN! expression RIGHT_PAREN! | expression)?
      node_atrib_case_func* END
    ;

node_atrib_case_func
    : case_atrib_func -> ^(FUNCTION case_atrib_func)
    ;

case_atrib_func
    : case_atrib_function
    ;

// WHEN a = 1; THEN b; ELSE c: equal items in any order
case_atrib_function
    : WHEN node_case_when_func_param
    | (THEN | ELSE) node_case_func_param
    ;

node_case_when_func_param
    : case_func_when_param -> ^(FUNC_PARAM case_func_when_param)
    ;

case_func_when_param
    : result_logical_expression
    ;

node_case_func_param
    : case_func_param -> ^(FUNC_PARAM case_func_param)
    ;

case_func_param
    : result_expression
    ;

result_logical_expression
    : (logical_expression)=> logical_expression
    | (LEFT_PAREN expression RIGHT_PAREN)=> LEFT_PAREN! expression RIGHT_PAREN!
    | expression
    ;

result_expression
    : expression
    ;

// ---------------------------------------------------------------- functions

all_node_function
    : node_function
    ;

// A user function is looked for only where a plain or quoted name starts; the words of dates are date functions alone.
node_function
    : function_ -> ^(FUNCTION function_)
    | (IDENTIFICATOR | LEFT_COL_PAREN | MY_QUOTE | MY_ONE_QUOTE)=> user_func_name -> ^(USER_FUNCTION user_func_name)
    | convert_function -> ^(FUNCTION convert_function)
    | date_function -> ^(FUNCTION date_function)
    ;

// LEN(a), PI, {fn UCASE(a)}
function_
    : function ((node_func_param)=> node_func_param)? RIGHT_BRACE!?
    ;

function
    : case_function
    | (group_function_)=> group_function_
    | number_function
    | string_function
    | LEFT_BRACE!? escape_syn^ fn_function RIGHT_BRACE!?
    | configuration_function
    | system_fumction
    | exist_func
    ;

escape_syn
    : 'fn'
    ;

fn_function
    : fn_func -> ^(FUNCTION fn_func)
    ;

// UCASE(a); and NOW(), whose list may be empty where both parentheses are there
fn_func
    : fn_str_function ((LEFT_PAREN RIGHT_PAREN)=> node_empty_param | node_group_func_param)
    ;

node_empty_param
    : LEFT_PAREN RIGHT_PAREN -> ^(FUNC_PARAM)
    ;

fn_str_function
    : 'UCASE'
    | 'LCASE'
    | 'NOW'
    ;

// COUNT(DISTINCT a)
group_function_
    : group_function node_group_func_param
    ;

group_function
    : AVG | BYNARY_CHECKSUM | CHECKSUM | COUNT | COUNT_BIG | GROUPING | MAX_KEYWORD | MIN | SUM | STDEV | STDEVP | VAR
    | VARP
    ;

number_function
    : ABS | ACOS | ASIN | ATAN | ATN2 | CEILING | COS | COT | DEGREES | EXP | FLOOR | ISNUMERIC | LOG | LOG10 | PI
    | POWER | RADIANS | RAND | ROUND | SIGN | SIN | SQRT | TAN
    ;

string_function
    : LEFT_KEYWORD | RIGHT_KEYWORD | CHAR | VAR | ASCII | CHARINDEX | COALESCE | DIFFERENCE | LEN | LOWER | LTRIM
    | NCHAR | PARINDEX | QUOTENAME | READTEXT | REPLACE | REPLICATE | REVERSE | RTRIM | SOUNDEX | SPACE | STR | STUFF
    | SUBSTRING | TEXTVALID | UNICODE | UPDATETEXT | UPPER | WRITETEXT | 'SET TEXTSIZE'
    ;

datetime_function
    : GETDATE | WEEKDAY | NOW | DATEADD | DATEDIFF | DATENAME | DATEPART | DAY | GETUTCDATE | HOUR | ISDATE | MONTH
    | MINUTE | YEAR | SECOND
    ;

convert_func
    : CONVERT
    | CAST
    ;

configuration_function
    : IDENT_CURRENT | '@@CONNECTION' | '@@DATEFIRST' | '@@DBTS' | '@@LANGID' | '@@LANGUAGE' | '@@LOCK_TIMEOUT'
    | '@@MAX_CONNECTIONS' | '@@MAX_PRECISION' | '@@NESTLEVEL' | '@@OPTIONS' | '@@REMSERVER' | '@@SERVERNAME'
    | '@@SERVICENAME' | '@@SPID' | '@@TEXTSIZE' | '@@VERSION'
    ;

system_fumction
    : ISNULL
    ;

// EXISTS (SELECT a FROM t)
exist_func
    : EXISTS node_exist_func_param
    ;

node_exist_func_param
    : all_sql_query -> ^(FUNC_PARAM all_sql_query)
    ;

convert_function
    : convert_func node_convert_func_param
    ;

date_function
    : datetime_function node_date_func_param
    ;

// f(a), whose name is no child; [dbo].f(a), whose names are. Behind a plain name no dot is looked for: dbo.f(a) is none
user_func_name
    : (IDENTIFICATOR)=> IDENTIFICATOR! node_func_param
    | node_db_name DOT! IDENTIFICATOR node_func_param
    ;

node_func_param
    : function_param -> ^(FUNC_PARAM function_param?)
    ;

// (a, b), (dd, a), (a b), (a
function_param
    : LEFT_PAREN!
      ( (node_date_part | expression)=> ((node_date_part)=> node_date_part | expression)
        ((COMMA? expression)=> COMMA!? expression)*
      )?
      RIGHT_PAREN!?
    ;

node_group_func_param
    : group_func_param -> ^(FUNC_PARAM group_func_param)
    ;

// (*), (DISTINCT a, b), a
group_func_param
    : LEFT_PAREN!? (ALL_KEYWORD | DISTINCT_KEYWORD)?
      ((ASTERISK)=> ASTERISK | expression ((COMMA expression)=> COMMA! expression)*)
      RIGHT_PAREN!?
    ;

node_convert_func_param
    : convert_func_param -> ^(FUNC_PARAM convert_func_param)
    ;

// (varchar(10), a, 103), (a AS int)
convert_func_param
    : (LEFT_PAREN? node_datatype COMMA expression)=>
      LEFT_PAREN!? node_datatype COMMA! expression ((COMMA node_style)=> COMMA! node_style)? RIGHT_PAREN!?
    | LEFT_PAREN!? expression as_rock^ node_datatype RIGHT_PAREN!?
    ;

as_rock
    : LITERAL_AS
    ;

node_style
    : number -> ^(STYLE number)
    ;

node_datatype
    : data_type_all -> ^(DATATYPE data_type_all)
    ;

// decimal(10, 2), varchar(max), int
data_type_all
    : data_type
      ( (LEFT_PAREN? (node_maximum | node_number))=>
        LEFT_PAREN!? (node_maximum | node_number ((COMMA node_number)=> COMMA! node_number)*) RIGHT_PAREN!?
      )?
    | data_type
    ;

data_type
    : DATETIME | VARCHAR | CHAR | INT | NUMERIC | FLOAT | MONEY | DECIMAL | SMALLMONEY | BIGINT | BIT | REAL
    | SMALLDATETIME | NVARCHAR | TINYINT | NTEXT | TIMESTAMP | INTEGER | NCHAR
    ;

node_date_func_param
    : date_func_param -> ^(FUNC_PARAM date_func_param?)
    ;

// (), (dd, 1, a)
date_func_param
    : LEFT_PAREN! ((node_date_part)=> node_date_part | expression)? (COMMA! expression)* RIGHT_PAREN!
    ;

node_date_part
    : date_part -> ^(DATE_PART date_part)
    ;

date_part
    : WEEK | MONTH | YEAR | 'n' | 'm' | 'mi' | 'yy' | 'ww' | 'wk' | 'mm' | 'yyyy' | 'd' | 'dw' | 'dd' | 'day' | 'hh'
    | 'h'
    ;

// ------------------------------------------------------------------- tokens

// Words and signs in one case; a blank in them is one blank, and the word before it is bound to it: SET TEXTSIZE

WORD_UCASE : 'UCASE';
WORD_LCASE : 'LCASE';
WORD_NOW : 'NOW';
WORD_AT_CONNECTION : '@@CONNECTION';
WORD_AT_DATEFIRST : '@@DATEFIRST';
WORD_AT_DBTS : '@@DBTS';
WORD_AT_LANGID : '@@LANGID';
WORD_AT_LANGUAGE : '@@LANGUAGE';
WORD_AT_LOCK_TIMEOUT : '@@LOCK_TIMEOUT';
WORD_AT_MAX_CONNECTIONS : '@@MAX_CONNECTIONS';
WORD_AT_MAX_PRECISION : '@@MAX_PRECISION';
WORD_AT_NESTLEVEL : '@@NESTLEVEL';
WORD_AT_OPTIONS : '@@OPTIONS';
WORD_AT_REMSERVER : '@@REMSERVER';
WORD_AT_SERVERNAME : '@@SERVERNAME';
WORD_AT_SERVICENAME : '@@SERVICENAME';
WORD_AT_SPID : '@@SPID';
WORD_AT_TEXTSIZE : '@@TEXTSIZE';
WORD_AT_VERSION : '@@VERSION';
WORD_SET_TEXTSIZE : 'SET TEXTSIZE';
WORD_n : 'n';
WORD_m : 'm';
WORD_mi : 'mi';
WORD_yy : 'yy';
WORD_ww : 'ww';
WORD_wk : 'wk';
WORD_mm : 'mm';
WORD_yyyy : 'yyyy';
WORD_d : 'd';
WORD_dw : 'dw';
WORD_dd : 'dd';
WORD_day : 'day';
WORD_hh : 'hh';
WORD_h : 'h';
WORD_fn : 'fn';
WORD_BROWSE : 'BROWSE';
WORD_XML : 'XML';
WORD_RAW : 'RAW';
WORD_AUTO : 'AUTO';
WORD_EXPLICIT : 'EXPLICIT';
WORD_XMLDATA : 'XMLDATA';
WORD_ELEMENTS : 'ELEMENTS';
WORD_BYNATY_base64 : 'BYNATY base64';
WORD_HASH : 'HASH';
WORD_MERGE : 'MERGE';
WORD_FAST : 'FAST';
WORD_FORCE : 'FORCE';
WORD_MAXDOP : 'MAXDOP';
WORD_ROBUST : 'ROBUST';
WORD_KEEP : 'KEEP';
WORD_KEEPFIXED : 'KEEPFIXED';
WORD_PLAN : 'PLAN';
WORD_EXPAND_VIEWS : 'EXPAND VIEWS';
WORD_WITH : 'WITH';
SIGN_QUOTE : '\'';
SIGN_HASH : '#';
SIGN_HASH_HASH : '##';
WORD_IDENTIFYCOL : 'IDENTIFYCOL';
WORD_ROWGUIDCOL : 'ROWGUIDCOL';
WORD_INTO : 'INTO';
WORD_INDEX : 'INDEX';
WORD_FASTFIRSTROW : 'FASTFIRSTROW';
WORD_HOLDLOCK : 'HOLDLOCK';
WORD_NOLOCK : 'NOLOCK';
WORD_PAGLOCK : 'PAGLOCK';
WORD_READCOMMITTED : 'READCOMMITTED';
WORD_READPAST : 'READPAST';
WORD_READUNCOMMITTED : 'READUNCOMMITTED';
WORD_REPEATABLEREAD : 'REPEATABLEREAD';
WORD_ROWLOCK : 'ROWLOCK';
WORD_SERIALIZABLE : 'SERIALIZABLE';
WORD_TABLOCK : 'TABLOCK';
WORD_TABLOCKX : 'TABLOCKX';
WORD_UPDLOCK : 'UPDLOCK';
WORD_XLOCK : 'XLOCK';
SIGN_AT : '@';

// Keywords, any case; the earlier rule wins a tie: select, Select
SELECT_KEYWORD : S E L E C T;
TOP_KEYWORD : T O P;
ALL_KEYWORD : A L L;
DISTINCT_KEYWORD : D I S T I N C T;
PERCENT_KEYWORD : P E R C E N T;
WITHTIES_KEYWORD : W I T H T I E S;
FROM_KEYWORD : F R O M;
EXISTS : E X I S T S;
LITERAL_AS : A S;
LEFT_COL_PAREN : '[';
RIGHT_COL_PAREN : ']';
MY_QUOTE : '"';
MY_ONE_QUOTE : '`';
INNER_KEYWORD : I N N E R;
JOIN_KEYWORD : J O I N;
LEFT_KEYWORD : L E F T;
RIGHT_KEYWORD : R I G H T;
FULL_KEYWORD : F U L L;
OUTER_KEYWORD : O U T E R;
LEFT_BRACE : '{';
RIGHT_BRACE : '}';
CROSS_KEYWORD : C R O S S;
WITH_KEYWORD : W I T H;
LEFT_PAREN : '(';
RIGHT_PAREN : ')';
ON_KEYWORD : O N;
NULL_KEYWORD : N U L L;
WHERE_KEYWORD : W H E R E;
CUBE_KEYWORD : C U B E;
ROLLUP_KEYWORD : R O L L U P;
HAVING_KEYWORD : H A V I N G;
UNION_KEYWORD_ : U N I O N;
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
WHEN : W H E N;
THEN : T H E N;
ELSE : E L S E;
END : E N D;
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
WEEK : W E E K;
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
DIFFERENCE : D I F F E R E N C E;
LEN : L E N;
LOWER : L O W E R;
LTRIM : L T R I M;
NCHAR : N C H A R;
PARINDEX : P A R I N D E X;
QUOTENAME : Q U O T E N A M E;
READTEXT : R E A D T E X T;
REPLACE : R E P L A C E;
REPLICATE : R E P L I C A T E;
REVERSE : R E V E R S E;
RTRIM : R T R I M;
SOUNDEX : S O U N D E X;
SPACE : S P A C E;
STR : S T R;
STUFF : S T U F F;
SUBSTRING : S U B S T R I N G;
TEXTVALID : T E X T V A L I D;
UNICODE : U N I C O D E;
UPDATETEXT : U P D A T E T E X T;
UPPER : U P P E R;
WRITETEXT : W R I T E T E X T;
LOOP : L O O P;
HASH : H A S H;
MERGE : M E R G E;
REMOTE : R E M O T E;
IDENT_CURRENT : I D E N T UNDERLINE C U R R E N T;
NSTR : N;

// a-1 is one name; $ and what lies beyond ASCII end it
IDENTIFICATOR
    : ('!' | '?' | 'A'..'Z' | '_' | 'a'..'z') ('!' | '#' | '-' | '0'..'9' | '?' | 'A'..'Z' | '_' | 'a'..'z')*
    ;

// A run of digits; points and exponents are put together by the parser: 10
DIGIT : '0'..'9'+;

PLUS : '+';
MINUS : '-';
AMPERSAND : '&';
DIVIDE : '/';
DOT : '.';
ASTERISK : '*';
COMMA : ',';
VERTBAR : '|';
MOD : '%';
EQ : '=';
L_T : '<';
GT : '>';
NOT_EQ : '!=' | '<>';
LE : '<=';
GE : '>=';
LOJ : '*=';
GOJ : '=*';

// Called by no rule: white space is dropped as an unknown character
fragment WS : ' ' | '\t' | '\n' | '\r' '\n'?;

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
