select Town, count(*) as Members from tblMember group by Town order by Town;
