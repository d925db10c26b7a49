SELECT N'Müller' AS Name, n'klein' AS Other FROM Personen
