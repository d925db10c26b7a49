SELECT id, state FROM tickets
WHERE state NOT IN ('closed', 'void', 'wont fix') AND owner_id not in (1, 2, 3)
