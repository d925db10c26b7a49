SELECT {fn UCASE(LastName)} AS Upper1, {fn LCASE(FirstName)} AS Lower1, {fn NOW()} AS Now1 FROM Employees WHERE BirthDate < '12/31/1960'
