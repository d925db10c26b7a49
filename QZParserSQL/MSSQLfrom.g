// MS SQL: the lexer and parser of a FROM list by itself, without SELECT and FROM.
//
// A list is one join; without the word JOIN there is none. Blanks and tabs make no token and are dropped like any unknown
// character; carriage return and line feed are tokens, taken in pairs and dropped. Rules called node_x wrap the rule x in
// a node.
grammar MSSQLfrom;

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
    COLUMN_SPECIFICATION_; FROM_DEF_; JOIN_DEF_; JOIN_PREFIX_; JOIN_POSTFIX_; NESTED_JOIN_; SEARCH_CONDITION_; ALIAS_;
    NEW_NAME_; TABLE_SPECIFICATION_; DB_NAME_; TABLE_NAME_; COLUMN_NAME_; NUMBER_LITERAL_; AND; ON_; TEST_; TEST_2;
}

// -------------------------------------------------------------------- joins

// The entry rule. What stands behind the join trails at the root, EOF last: a JOIN b, c
from_root
    : node_from_list .* EOF
    ;

node_from_list
    : from_list -> ^(FROM_DEF_ from_list)
    ;

from_list
    : table_source
    ;

table_source
    : node_joined_table
    ;

// a JOIN b ON x = y LEFT JOIN c ON z = w: what is joined on stands beside the join
node_joined_table
    : joined_table ((nestedJoin)=> nestedJoin)? -> ^(JOIN_DEF_ joined_table nestedJoin?)
    ;

// a INNER JOIN b ON x = y. JOIN is neither put in nor searched: without it the rule fails
joined_table
    : node_join_prefix JOIN_KEYWORD_^ node_join_postfix
    ;

node_join_prefix
    : node_test_prefix -> ^(JOIN_PREFIX_ node_test_prefix?)
    ;

node_test_prefix
    : LEFT_PAREN_!? join_prefix RIGHT_PAREN_!?
    ;

// a LEFT OUTER; the parentheses around a join stay: (a JOIN b ON x = y)
join_prefix
    : ( (LEFT_PAREN_ node_nestedJoin RIGHT_PAREN_)=> LEFT_PAREN_ node_nestedJoin RIGHT_PAREN_
      | (crlf node_nestedJoin)=> crlf node_nestedJoin
      | (join_type)=> join_type
      | (crlf? node_t_n)=> crlf? node_t_n
      | (crlf? node_table_specification)=> crlf? node_table_specification ((crlf)=> crlf)?
      )*
      join_type?
    ;

// FULL OUTER HASH
join_type
    : (INNER_KEYWORD_ | (LEFT_KEYWORD_ | RIGHT_KEYWORD_ | FULL_KEYWORD_) OUTER_KEYWORD_?) join_hint?
    | CROSS_KEYWORD_
    ;

join_hint
    : 'LOOP'
    | 'HASH'
    | 'MERGE'
    | 'REMOTE'
    ;

// b ON x = y, where b may be a join itself: a JOIN b JOIN c ON y = z ON x = y
node_join_postfix
    : ((old_big_postfix)=> old_big_postfix)? ((join_postfix)=> join_postfix)? ((test)=> test)?
      -> ^(JOIN_POSTFIX_ old_big_postfix? join_postfix? test?)
    ;

join_postfix
    : postfix_table ((node_joined_table)=> node_joined_table)?
    ;

// A join without ON of its own, then ON for the join around it
test
    : ((node_nestedJoin)=> node_nestedJoin)? ((crlf)=> crlf)?
      ( (ON_KEYWORD_ node_search_condition)=> on_condition
      | ((n_and)=> n_and)*
      )
    ;

// ON a.x = b.x AND a.y = b.y: ON is the root over all conditions
on_condition
    : ON_KEYWORD_^ node_search_condition ((n_and)=> n_and)*
    ;

n_and
    : and_condition -> ^(AND and_condition)
    ;

and_condition
    : AND_KEYWORD_!? node_search_condition
    ;

old_big_postfix
    : ((node_joined_table)=> node_joined_table)? big_postfix
    ;

// Called by no rule.
all_old_big_postfix
    : old_big_postfix
    ;

big_postfix
    : postfix_table
    ;

// What JOIN joins: (b JOIN c ON y = z), b AS x
postfix_table
    : ( (LEFT_PAREN_? node_nestedJoin)=> LEFT_PAREN_? node_nestedJoin RIGHT_PAREN_?
      | (crlf? node_nestedJoin)=> crlf? node_nestedJoin
      | (crlf? node_t_n)=> crlf? node_t_n
      | (crlf? node_table_specification)=> crlf? node_table_specification
      )+
    ;

node_nestedJoin
    : nestedJoin -> ^(NESTED_JOIN_ nestedJoin)
    ;

nestedJoin
    : node_joined_table
    ;

// ----------------------------------------------------------- tables, columns

node_t_n
    : t_n -> ^(ALIAS_ t_n)
    ;

// t AS x; and a mere t. The word AS is a child too
t_n
    : node_table_specification ((LITERAL_AS_ node_new_name)=> LITERAL_AS_ node_new_name)?
    ;

node_new_name
    : new_name -> ^(NEW_NAME_ new_name?)
    ;

// [#x]
new_name
    : LEFT_COL_PAREN_!? ('#' | '##')? (ID_ | quoted_identifier) RIGHT_COL_PAREN_!?
    ;

node_table_specification
    : table_specification -> ^(TABLE_SPECIFICATION_ table_specification)
    ;

// db.t
table_specification
    : (node_db_name DOT_ node_table_name)=> node_db_name DOT_! node_table_name
    | node_table_name
    ;

node_column_specification
    : column_specification -> ^(COLUMN_SPECIFICATION_ column_specification)
    ;

// db.t.a, t.a, a
column_specification
    : (node_db_name DOT_ node_table_name DOT_ node_column_name)=>
      node_db_name DOT_! node_table_name DOT_! node_column_name
    | (node_table_name DOT_ node_column_name)=> node_table_name DOT_! node_column_name
    | node_column_name
    ;

node_column_name
    : column_name -> ^(COLUMN_NAME_ column_name?)
    ;

column_name
    : quoted_identifier
    | ID_
    ;

table_name
    : quoted_identifier
    | ID_
    ;

node_db_name
    : db_name -> ^(DB_NAME_ db_name)
    ;

db_name
    : ID_
    ;

node_table_name
    : table_name -> ^(TABLE_NAME_ table_name?)
    ;

// What stands in quotes are tokens, each a child; a quote that is written twice stays, the outer pair goes
quoted_identifier
    : LEFT_COL_PAREN_! ~RIGHT_COL_PAREN_* RIGHT_COL_PAREN_!
      ((RIGHT_COL_PAREN_ ~RIGHT_COL_PAREN_* RIGHT_COL_PAREN_)=> RIGHT_COL_PAREN_ ~RIGHT_COL_PAREN_* RIGHT_COL_PAREN_)*
    | MY_QUOTE! ~MY_QUOTE* MY_QUOTE! ((MY_QUOTE ~MY_QUOTE* MY_QUOTE)=> MY_QUOTE ~MY_QUOTE* MY_QUOTE)*
    ;

// --------------------------------------------------------------- conditions

node_search_condition
    : search_condition -> ^(SEARCH_CONDITION_ search_condition)
    ;

// (a.x = b.x)
search_condition
    : LEFT_PAREN_!? func_comparison RIGHT_PAREN_!? ((crlf)=> crlf)?
    ;

func_comparison
    : func_parameter (EQ_^ | L_T_^ | GT_^ | LE_^ | GE_^ | NOT_EQ_^ | LOJ_^ | GOJ_^) func_parameter
    ;

func_parameter
    : crlf? expression
    ;

expression
    : term (((PLUS_ | MINUS_) term)=> (PLUS_^ | MINUS_^) term)*
    ;

term
    : factor (((ASTERISK_ | DIVIDE_) factor)=> (ASTERISK_^ | DIVIDE_^) factor)*
    ;

// a | | b
factor
    : factor2 ((VERTBAR_ VERTBAR_ factor2)=> VERTBAR_ VERTBAR_ factor2)*
    ;

factor2
    : node_number
    | node_column_specification
    ;

node_number
    : number -> ^(NUMBER_LITERAL_ number)
    ;

number
    : INT_
    | FLOAT_
    ;

crlf
    : '\r'! '\n'!
    ;

// ------------------------------------------------------------------- tokens

// Words and signs in one case
SIGN_HASH : '#';
SIGN_HASH_HASH : '##';
SIGN_RETURN : '\r';
SIGN_LINE_FEED : '\n';
WORD_LOOP : 'LOOP';
WORD_HASH : 'HASH';
WORD_MERGE : 'MERGE';
WORD_REMOTE : 'REMOTE';

// Keywords, any case; the earlier rule wins a tie: join, Join
JOIN_KEYWORD_ : J O I N;
LEFT_PAREN_ : '(';
RIGHT_PAREN_ : ')';
INNER_KEYWORD_ : I N N E R;
LEFT_KEYWORD_ : L E F T;
RIGHT_KEYWORD_ : R I G H T;
FULL_KEYWORD_ : F U L L;
OUTER_KEYWORD_ : O U T E R;
CROSS_KEYWORD_ : C R O S S;
ON_KEYWORD_ : O N;
LITERAL_AS_ : A S;
LEFT_COL_PAREN_ : '[';
RIGHT_COL_PAREN_ : ']';
MY_QUOTE : '"';
WITH_KEYWORD_ : W I T H;
AND_KEYWORD_ : A N D;
PLUS_ : '+';
MINUS_ : '-';
AMPERSAND_ : '&';
DIVIDE_ : '/';
DOT_ : '.';
ASTERISK_ : '*';
COMMA_ : ',';
VERTBAR_ : '|';
ID_ : ('A'..'Z' | '_' | 'a'..'z') ('0'..'9' | 'A'..'Z' | '_' | 'a'..'z')*;
INT_ : '0'..'9'+;

// 1.5E3, .5, 1E-3
FLOAT_
    : '0'..'9'+ '.' '0'..'9'* EXPONENT_?
    | '.' '0'..'9'+ EXPONENT_?
    | '0'..'9'+ EXPONENT_
    ;

EQ_ : '=';
L_T_ : '<';
GT_ : '>';
NOT_EQ_ : '!=' | '<>';
LE_ : '<=';
GE_ : '>=';
LOJ_ : '*=';
GOJ_ : '=*';

fragment EXPONENT_ : ('E' | 'e') ('+' | '-')? '0'..'9'+;
// Called by no rule: a blank or tab is dropped as an unknown character
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
